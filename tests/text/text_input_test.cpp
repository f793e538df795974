#include "text/text_input.hpp"

#include <gtest/gtest.h>

#include "text/utf.hpp"

namespace quilom::text {
namespace {

TEST(FirstInvalidUtf8, NamesTheOffsetOfTheFirstBadSequence) {
  struct Case {
    std::string bytes;
    std::optional<std::size_t> expected;
  };
  const Case cases[] = {
      {"வணக்கம் \xF0\x9F\x98\x80", std::nullopt},
      {"\xEF\xBF\xBD", std::nullopt},  // a real U+FFFD is text, not damage
      {"ab\xE9z", 2},                  // a Windows-1252 byte
      {"\xC5\xBD\xEC\xB8", 2},         // legacy bytes whose first pair happens to be valid
      {"a\xC0\xAF", 1},                // overlong
      {"ok\xE0\xAE", 2},               // cut at the end
  };
  for (const Case& c : cases) {
    EXPECT_EQ(FirstInvalidUtf8(c.bytes), c.expected) << c.bytes;
  }
}

TEST(DecodeTextInput, ReadsEachFormByItsMarkAndNothingElse) {
  const DecodedText plain = DecodeTextInput("கா");
  EXPECT_EQ(plain.form, TextForm::Utf8);
  EXPECT_EQ(plain.text, u"கா");

  const DecodedText marked = DecodeTextInput(
      "\xEF\xBB\xBF"
      "கா");
  EXPECT_EQ(marked.form, TextForm::Utf8WithMark);
  EXPECT_EQ(marked.text, u"கா");

  const DecodedText little = DecodeTextInput(std::string("\xFF\xFE\x95\x0B\xBE\x0B", 6));
  EXPECT_EQ(little.form, TextForm::Utf16Le);
  EXPECT_EQ(little.text, u"கா");

  const DecodedText big = DecodeTextInput(std::string("\xFE\xFF\x0B\x95\x0B\xBE", 6));
  EXPECT_EQ(big.form, TextForm::Utf16Be);
  EXPECT_EQ(big.text, u"கா");
  EXPECT_FALSE(big.invalidAt);
}

TEST(DecodeTextInput, DamageIsPlacedInTheFileWithItsMarkCounted) {
  EXPECT_EQ(DecodeTextInput("\xEF\xBB\xBFz\xE9").invalidAt, 4u);
  const DecodedText odd = DecodeTextInput(std::string("\xFF\xFE\x95\x0B\xBE", 5));
  EXPECT_EQ(odd.invalidAt, 4u);
  EXPECT_EQ(odd.text, u"க\uFFFD");
  EXPECT_TRUE(StartsWithByteOrderMark("\xFE\xFF"));
  EXPECT_FALSE(StartsWithByteOrderMark("\xEF\xBB"));
}

// A long input is read in pieces that may end anywhere: inside the mark, inside a character,
// between the bytes of a UTF-16 unit. Every split gives what the whole gives.
TEST(TextInputDecoder, PiecesSplitAnywhereGiveTheWholeText) {
  const std::string inputs[] = {
      "\xEF\xBB\xBF"
      "வணக்கம் \xF0\x9F\x98\x80!",
      std::string("\xFE\xFF\x0B\x95\x0B\xBE\xD8\x3D\xDE\x00", 10),
      "ab\xE9\xE0\xAE",  // damage, then a cut character
  };
  for (const std::string& input : inputs) {
    const DecodedText whole = DecodeTextInput(input);
    for (std::size_t split = 0; split <= input.size(); ++split) {
      TextInputDecoder decoder;
      std::u16string text;
      decoder.Feed(std::string_view(input).substr(0, split), text);
      decoder.Feed(std::string_view(input).substr(split), text);
      decoder.Finish(text);
      EXPECT_EQ(text, whole.text) << "split at " << split;
      EXPECT_EQ(decoder.Form(), whole.form);
      EXPECT_EQ(decoder.InvalidAt(), whole.invalidAt) << "split at " << split;
    }
  }
  EXPECT_EQ(DecodeTextInput("ab\xE9\xE0\xAE").invalidAt, 2u);
}

}  // namespace
}  // namespace quilom::text
