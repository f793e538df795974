#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "cli/command.hpp"
#include "support/temp_folder.hpp"

namespace quilom::cli {
namespace {

struct UrlNormRun {
  int status;
  std::string out;
  std::string err;
};

UrlNormRun UrlNorm(const std::vector<std::string>& words, const std::string& input = "") {
  std::vector<std::string> args = {"--data", testing::SourceDataRoot().string(), "urlnorm"};
  args.insert(args.end(), words.begin(), words.end());
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream err;
  const int status = RunQuilom(args, in, out, err, testing::SourceDataRoot().parent_path(), false);
  return {status, out.str(), err.str()};
}

constexpr const char* kEncodedTamil = "%E0%AE%A4%E0%AE%AE%E0%AE%BF%E0%AE%B4%E0%AF%8D";

TEST(UrlNormCommand, DecodesAnArgumentOrStandardInput) {
  const UrlNormRun argument = UrlNorm({kEncodedTamil});
  EXPECT_EQ(argument.status, 0) << argument.err;
  EXPECT_EQ(argument.out, "தமிழ்\n");
  const UrlNormRun piped = UrlNorm({}, std::string("https://x.example/") + kEncodedTamil + "\r\n");
  EXPECT_EQ(piped.out, "https://x.example/தமிழ்\r\n");
  EXPECT_EQ(UrlNorm({"-"}, "%41").out, "A");
}

// A long text on standard input is normalised a block of lines at a time, with the result the
// whole text gives; blank lines in front stay.
TEST(UrlNormCommand, LongTextsNormaliseAsOne) {
  std::string input = "\n \n", expected = "\n \n";
  for (int line = 0; line < 40000; ++line) {
    input += std::string("https://x.example/") + kEncodedTamil + "?n=" + std::to_string(line) + "\n";
    expected += "https://x.example/தமிழ்?n=" + std::to_string(line) + "\n";
  }
  const UrlNormRun run = UrlNorm({}, input);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(run.out == expected) << run.out.size() << " bytes, expected " << expected.size();
}

TEST(UrlNormCommand, AddressOptionPrintsOnlyWhatWouldBeOpened) {
  const UrlNormRun address = UrlNorm({"--address", std::string("see https://x.example/") + kEncodedTamil + " now"});
  EXPECT_EQ(address.status, 0) << address.err;
  EXPECT_EQ(address.out, "https://x.example/தமிழ்\n");
  const UrlNormRun none = UrlNorm({"--address", "notepad.exe"});
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.out, "");
}

TEST(UrlNormCommand, RefusesWhatCannotBeNormalised) {
  struct Case {
    std::vector<std::string> words;
    std::string input;
    int status;
    std::string message;
  };
  const std::vector<Case> cases = {
      {{"%20AB"}, "", 1, "worth 256 or more"},
      {{}, "  \n", 1, "no text to normalise"},
      {{"a", "b"}, "", 2, "one argument"},
      {{"--open"}, "", 2, "unknown option '--open'"},
  };
  for (const auto& c : cases) {
    const UrlNormRun run = UrlNorm(c.words, c.input);
    EXPECT_EQ(run.status, c.status) << c.message;
    EXPECT_NE(run.err.find(c.message), std::string::npos) << run.err;
    EXPECT_EQ(run.out, "");
  }
}

}  // namespace
}  // namespace quilom::cli
