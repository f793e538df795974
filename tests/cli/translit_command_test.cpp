#include <gtest/gtest.h>

#include <sstream>

#include "cli/command.hpp"
#include "support/temp_folder.hpp"

namespace quilom::cli {
namespace {

struct Run {
  int status;
  std::string out, err;
};

Run Translit(std::vector<std::string> words, const std::string& input = "") {
  std::vector<std::string> args = {"--data", testing::SourceDataRoot().string(), "translit"};
  args.insert(args.end(), words.begin(), words.end());
  std::istringstream in(input);
  std::ostringstream out, err;
  const int status = RunQuilom(args, in, out, err, testing::SourceDataRoot().parent_path(), false);
  return {status, out.str(), err.str()};
}

TEST(TranslitCommand, TypesStandardInputOrAFileThroughTheTamilKeymap) {
  const auto run = Translit({}, "vaNakkam thamizh\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "வணக்கம் தமிழ்\n");
  testing::TempFolder folder;
  testing::WriteBytes(folder / "in.txt", "amma appaa\n");
  const auto fromFile = Translit({(folder / "in.txt").string()});
  EXPECT_EQ(fromFile.status, 0) << fromFile.err;
  EXPECT_EQ(fromFile.out, "அம்ம அப்பா\n");
}

TEST(TranslitCommand, KeepsLineBreaksAndDropsTheByteOrderMark) {
  const auto run = Translit({"--keymap", "Tamil-Unicode-PhoneticTransliteration"}, "\xEF\xBB\xBFka\r\n\r\nki 12\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "க\r\n\r\nகி 12\n");
}

TEST(TranslitCommand, UnknownKeymapListsTheInstalledOnes) {
  const auto run = Translit({"--keymap", "Klingon"}, "ka");
  EXPECT_NE(run.status, 0);
  EXPECT_TRUE(run.out.empty());
  EXPECT_NE(run.err.find("unknown keymap 'Klingon'"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("Tamil-Unicode-PhoneticTransliteration"), std::string::npos) << run.err;
}

TEST(TranslitCommand, BadArgumentsAndMissingFilesFail) {
  for (const auto& words :
       std::vector<std::vector<std::string>>{{"--bogus"}, {"a.txt", "b.txt"}, {"--keymap"}, {"/no/such/file.txt"}}) {
    const auto run = Translit(words, "ka");
    EXPECT_NE(run.status, 0) << words[0];
    EXPECT_FALSE(run.err.empty()) << words[0];
    EXPECT_TRUE(run.out.empty()) << words[0];
  }
}

}  // namespace
}  // namespace quilom::cli
