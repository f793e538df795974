#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command.hpp"
#include "cli/exit_codes.hpp"
#include "converter/encoding_list.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"

namespace quilom::cli {
namespace {

struct CommandRun {
  int status;
  std::string out;
  std::string err;
};

CommandRun Quilom(const std::vector<std::string>& words, const std::string& input = "") {
  std::vector<std::string> args = {"--data", testing::SourceDataRoot().string()};
  args.insert(args.end(), words.begin(), words.end());
  std::istringstream in(input);
  std::ostringstream out, err;
  const int status = RunQuilom(args, in, out, err, testing::SourceDataRoot().parent_path(), false);
  return {status, out.str(), err.str()};
}

const std::string kParagraph =
    "எங்கள் ஊரில் ஒரு பெரிய குளம் இருக்கிறது. மழைக்காலத்தில் அது நிறைந்து வழியும். சிறுவர்கள் அதன் கரையில் "
    "விளையாடுவார்கள்.";

TEST(DetectCommand, NamesTheEncodingWithItsConfidenceAndRunnersUp) {
  for (const std::string encoding : {"Tscii", "Bamini", "Tab", "Stmzh"}) {
    const CommandRun legacy = Quilom({"convert", "--from", "Unicode", "--to", encoding}, kParagraph);
    ASSERT_EQ(legacy.status, 0) << legacy.err;
    const CommandRun detected = Quilom({"detect"}, legacy.out);
    EXPECT_EQ(detected.status, 0) << detected.err;
    EXPECT_EQ(detected.out.substr(0, encoding.size() + 13), encoding + " (confidence ") << detected.out;
    EXPECT_NE(detected.out.find("\n  then "), std::string::npos);
  }
  const CommandRun all =
      Quilom({"detect", "--all"}, Quilom({"convert", "--from", "Unicode", "--to", "Tscii"}, kParagraph).out);
  // Every shipped legacy encoding is named, alone or in its family.
  const converter::EncodingList list = converter::LoadEncodingList(testing::SourceDataRoot() / "Tamil Fonts Converter");
  ASSERT_GE(list.names.size(), 20u);
  for (std::size_t position = 1; position < list.names.size(); ++position) {
    EXPECT_NE(all.out.find(text::Utf16ToUtf8(list.names[position])), std::string::npos) << all.out;
  }
}

// Libi and Shreelipi give this paragraph's glyph codes the same meaning: naming either alone
// would be a coin toss, so both are named, once, with their joint confidence.
TEST(DetectCommand, NamesEncodingsThatReadTheTextAlikeTogether) {
  const CommandRun legacy = Quilom({"convert", "--from", "Unicode", "--to", "Shreelipi"}, kParagraph);
  ASSERT_EQ(legacy.status, 0) << legacy.err;
  const CommandRun detected = Quilom({"detect", "--all"}, legacy.out);
  ASSERT_EQ(detected.status, 0) << detected.err;
  const std::string first = detected.out.substr(0, detected.out.find('\n'));
  EXPECT_NE(first.find("Libi or Shreelipi (confidence "), std::string::npos) << first;
  EXPECT_NE(first.find("read the text the same way"), std::string::npos) << first;
  EXPECT_EQ(detected.out.find("Shreelipi", first.size()), detected.out.find("Shreelipiavid", first.size()))
      << "named twice:\n"
      << detected.out;
}

TEST(DetectCommand, NamesWhatIsNotLegacyTamilWithStatusFour) {
  struct Row {
    std::string input;
    const char* named;
  };
  const Row rows[] = {
      {"Hello world", "English text"},
      {"Just a plain English sentence, with nothing Tamil about it at all.", "English text"},
      {kParagraph, "Unicode Tamil text (UTF-8)"},
      {testing::Utf16LeWithMark(text::Utf8ToUtf16(kParagraph)), "UTF-16 text"},
      {std::string("\x7F"
                   "ELF\x02\x01\x01\0\0\0\0\0",
                   12),
       "binary data"},
      {"", "empty input"},
  };
  for (const Row& row : rows) {
    const CommandRun run = Quilom({"detect"}, row.input);
    EXPECT_EQ(run.status, kExitNotLegacyTamil) << row.named;
    EXPECT_EQ(run.out, std::string("Not legacy Tamil: ") + row.named + "\n");
  }
}

TEST(DetectCommand, ShortLegacyTextIsStillNamed) {
  for (const std::string sentence : {"எங்கள் ஊரில் ஒரு பெரிய குளம் இருக்கிறது.", "அம்மா", "வணக்கம்", "மழை", "அவை"}) {
    const CommandRun legacy = Quilom({"convert", "--from", "Unicode", "--to", "Bamini"}, sentence);
    ASSERT_EQ(legacy.status, 0) << legacy.err;
    const CommandRun detected = Quilom({"detect"}, legacy.out);
    EXPECT_EQ(detected.status, kExitDone) << detected.out;
    EXPECT_NE(detected.out.find("Bamini"), std::string::npos) << detected.out;
  }
}

// The percentages printed, line by line.
std::vector<double> Confidences(const std::string& out) {
  std::vector<double> percents;
  for (std::size_t at = out.find("%)"); at != std::string::npos; at = out.find("%)", at + 1)) {
    percents.push_back(std::stod(out.substr(out.find_last_not_of("0123456789.", at - 1) + 1)));
  }
  return percents;
}

// The first line's confidence is the highest printed: a family of encodings that read a text
// alike never outweighs a better reading.
TEST(DetectCommand, NoRunnerUpShowsMoreConfidenceThanTheFirst) {
  for (const std::string encoding : {"Softview", "Kavipriya", "Pallavar", "Dinakaran", "Vanavil"}) {
    for (const std::string& text : {kParagraph, std::string("அது நிறைந்து வழியும்.")}) {
      const CommandRun legacy = Quilom({"convert", "--from", "Unicode", "--to", encoding}, text);
      const CommandRun detected = Quilom({"detect", "--all"}, legacy.out);
      ASSERT_EQ(detected.status, kExitDone) << encoding << detected.out;
      const std::vector<double> percents = Confidences(detected.out);
      ASSERT_GE(percents.size(), 5u) << detected.out;
      EXPECT_TRUE(std::is_sorted(percents.rbegin(), percents.rend())) << encoding << ":\n" << detected.out;
    }
  }
}

TEST(DetectCommand, UsageAndUnreadableInputHaveTheirOwnStatus) {
  EXPECT_EQ(Quilom({"detect", "a", "b"}).status, kExitUsage);
  EXPECT_EQ(Quilom({"detect", "--bogus"}).status, kExitUsage);
  EXPECT_EQ(Quilom({"detect", "/no/such/file.txt"}).status, kExitFailed);
}

}  // namespace
}  // namespace quilom::cli
