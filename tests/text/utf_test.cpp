#include <gtest/gtest.h>

#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::text {
namespace {

TEST(Utf, TamilAndAstralCharactersRoundTrip) {
  const std::string utf8 = "வணக்கம் \xF0\x9F\x98\x80 x";
  const std::u16string utf16 = Utf8ToUtf16(utf8);
  EXPECT_EQ(utf16, u"வணக்கம் \U0001F600 x");
  EXPECT_EQ(Utf16ToUtf8(utf16), utf8);
}

TEST(Utf, InvalidUtf8BecomesReplacementCharacters) {
  EXPECT_EQ(Utf8ToUtf16("a\xE9z"), u"a\uFFFDz");          // Latin-1 byte
  EXPECT_EQ(Utf8ToUtf16("\xC0\xAFz"), u"\uFFFDz");        // overlong '/'
  EXPECT_EQ(Utf8ToUtf16("\xED\xA0\x80z"), u"\uFFFDz");    // encoded surrogate
  EXPECT_EQ(Utf8ToUtf16("\xE0\xAE"), u"\uFFFD");          // truncated at the end
}

TEST(Utf, LoneSurrogateEncodesAsReplacement) {
  EXPECT_EQ(Utf16ToUtf8(std::u16string(1, char16_t(0xD83D))), "\xEF\xBF\xBD");
}

TEST(Strings, SplitKeepsEmptyPiecesAndJoinRestores) {
  const std::u16string text = u"a\r\n\r\nb\r\n";
  const auto pieces = Split(text, kCrLf);
  ASSERT_EQ(pieces.size(), 4u);
  EXPECT_EQ(pieces[1], u"");
  EXPECT_EQ(pieces[3], u"");
  EXPECT_EQ(Join(pieces, kCrLf), text);
  EXPECT_EQ(Split(u"", kCrLf).size(), 1u);
}

TEST(Strings, TrimReplaceAndCase) {
  EXPECT_EQ(Trim(u"  12 \t"), u"12");
  EXPECT_EQ(Trim(u"   "), u"");
  EXPECT_EQ(ReplaceAll(u"aaa", u"aa", u"b"), u"ba");
  EXPECT_EQ(AsciiLower(u"Stmzh (SR, RGB) க"), u"stmzh (sr, rgb) க");
}

}  // namespace
}  // namespace quilom::text
