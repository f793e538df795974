#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "cli/command.hpp"
#include "support/temp_folder.hpp"

namespace quilom::cli {
namespace {

struct ReverseRun {
  int status;
  std::string out;
  std::string err;
};

ReverseRun Reverse(const std::vector<std::string>& words, const std::string& input = "",
                   const std::string& dataRoot = testing::SourceDataRoot().string()) {
  std::vector<std::string> args = {"--data", dataRoot, "reverse"};
  args.insert(args.end(), words.begin(), words.end());
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream err;
  const int status = RunQuilom(args, in, out, err, testing::SourceDataRoot().parent_path(), false);
  return {status, out.str(), err.str()};
}

TEST(ReverseCommand, ConvertsStandardInputWithTheWordList) {
  const ReverseRun run = Reverse({}, "தமிழ் கவிதை, Hello ௧௨\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "thamizh kavithai, Hello ௧௨\n");
  EXPECT_EQ(Reverse({"--no-word-list"}, "கவிதை").out, "kavidhai");
}

TEST(ReverseCommand, OptionsFollowTheWindowsChoices) {
  EXPECT_EQ(Reverse({"--numerals", "--signs"}, "௧௨ ௱ ௹").out, "12 100 rupee");
  EXPECT_EQ(Reverse({"--keep-graves"}, "`அது` அது").out, "`அது` adhu");
  EXPECT_EQ(Reverse({"--keep-graves", "--remove-graves"}, "`அது` அது").out, "அது adhu");
  EXPECT_EQ(Reverse({"--lower"}, "வணக்கம்").out, "vanakkam");
  EXPECT_EQ(Reverse({}, "நான் வந்தேன்").out, "naan vandhEn");
  EXPECT_EQ(Reverse({"--typeable"}, "நான் வந்தேன்").out, "waan vandhEn");
  const ReverseRun counts = Reverse({"--counts"}, "அது");
  EXPECT_EQ(counts.err, "Input characters  = 3\r\nOutput characters = 4\n");
}

TEST(ReverseCommand, ReadsAndWritesFiles) {
  testing::TempFolder folder;
  testing::WriteBytes(folder / "in.txt", "\xEF\xBB\xBFநன்றி\r\n");
  const auto output = (folder / "out.txt").string();
  const ReverseRun run = Reverse({(folder / "in.txt").string(), "--output", output});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(testing::ReadBytes(folder / "out.txt"), "nandri\r\n");

  const ReverseRun sample = Reverse({"--sample"});
  EXPECT_EQ(sample.status, 0) << sample.err;
  EXPECT_EQ(sample.out.rfind("thamizh oru", 0), 0u);
}

TEST(ReverseCommand, BadInputFailsWithAMessage) {
  struct Case {
    std::vector<std::string> words;
    std::string input;
    int status;
    std::string message;
  };
  const std::vector<Case> cases = {
      {{"--bogus"}, "", 2, "unknown option '--bogus'"},
      {{"/no/such/file.txt"}, "", 1, "cannot open '/no/such/file.txt'"},
      {{}, "\xE0\xAE", 1, "not valid UTF-8: the byte at offset 0"},
      {{"-o", "-", "--", "--sample"}, "", 1, "cannot open '--sample'"},
  };
  for (const auto& c : cases) {
    const ReverseRun run = Reverse(c.words, c.input);
    EXPECT_EQ(run.status, c.status) << c.message;
    EXPECT_NE(run.err.find(c.message), std::string::npos) << run.err;
    EXPECT_EQ(run.out, "");
  }
}

// Every command reads the same text forms: UTF-16 with its mark as well as UTF-8.
TEST(ReverseCommand, ReadsUtf16WithItsMark) {
  const ReverseRun run = Reverse({"--no-word-list"}, std::string("\xFF\xFE\x85\x0B", 4));
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, Reverse({"--no-word-list"}, "அ").out);
  EXPECT_FALSE(run.out.empty());
}

TEST(ReverseCommand, MissingWordListIsAnErrorUnlessDeclined) {
  testing::TempFolder emptyRoot;
  const ReverseRun missing = Reverse({}, "அது", emptyRoot.path().string());
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.err.find("word list is missing"), std::string::npos) << missing.err;
  const ReverseRun declined = Reverse({"--no-word-list"}, "அது", emptyRoot.path().string());
  EXPECT_EQ(declined.status, 0);
  EXPECT_EQ(declined.out, "adhu");
}

}  // namespace
}  // namespace quilom::cli
