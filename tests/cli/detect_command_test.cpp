#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "cli/command.hpp"
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

TEST(DetectCommand, SaysSoWhenNothingReadsAsTamil) {
  const CommandRun run =
      Quilom({"detect"}, "Just a plain English sentence, with nothing Tamil about it at all, none whatsoever.");
  EXPECT_NE(run.status, 0);
  EXPECT_NE(run.err.find("does not read as Tamil"), std::string::npos) << run.err;
}

}  // namespace
}  // namespace quilom::cli
