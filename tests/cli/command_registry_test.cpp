#include <gtest/gtest.h>

#include <sstream>

#include "cli/command.hpp"
#include "support/temp_folder.hpp"

namespace quilom::cli {
namespace {

struct CommandRun {
  int status;
  std::string out;
  std::string err;
};

CommandRun Quilom(const std::vector<std::string>& args) {
  std::istringstream in;
  std::ostringstream out, err;
  std::vector<std::string> all = {"--data", testing::SourceDataRoot().string()};
  all.insert(all.end(), args.begin(), args.end());
  const int status = RunQuilom(all, in, out, err, ".", false);
  return {status, out.str(), err.str()};
}

TEST(CommandRegistry, EveryCommandAnswersHelpWithItsUsage) {
  ASSERT_FALSE(Commands().empty());
  for (const Command& command : Commands()) {
    const CommandRun run = Quilom({command.name, "--help"});
    EXPECT_EQ(run.status, 0) << command.name << ": " << run.err;
    EXPECT_NE(run.out.find(command.name), std::string::npos) << command.name << " printed: " << run.out;
  }
}

TEST(CommandRegistry, UnknownCommandsAndOptionsFailWithTheCommandList) {
  const CommandRun unknown = Quilom({"transliterate"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_NE(unknown.err.find("unknown command 'transliterate'"), std::string::npos);
  EXPECT_NE(unknown.err.find("translit"), std::string::npos);

  const CommandRun badOption = Quilom({"--verbose", "translit"});
  EXPECT_EQ(badOption.status, 2);
  EXPECT_NE(badOption.err.find("unknown option '--verbose'"), std::string::npos);
}

}  // namespace
}  // namespace quilom::cli
