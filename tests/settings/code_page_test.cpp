#include "settings/code_page.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace quilom::settings {
namespace {

TEST(Windows1252, MapsTheHighControlRangeAndLeavesItsFiveHolesUndefined) {
  const auto page = Windows1252();
  EXPECT_EQ(page->Number(), 1252);
  EXPECT_EQ(page->ToUnicode(0x80), u'\u20AC');
  EXPECT_EQ(page->ToUnicode(0x8C), u'\u0152');
  EXPECT_EQ(page->ToUnicode(0x99), u'\u2122');
  EXPECT_EQ(page->ToUnicode(0x9F), u'\u0178');
  for (unsigned char hole : {0x81, 0x8D, 0x8F, 0x90, 0x9D}) {
    EXPECT_EQ(page->ToUnicode(hole), u'\uFFFD') << int(hole);
  }
  EXPECT_EQ(page->ToUnicode(0x41), u'A');
  EXPECT_EQ(page->ToUnicode(0xA0), u'\u00A0');
  EXPECT_EQ(page->ToUnicode(0xFF), u'\u00FF');
}

TEST(Windows1252, EveryDefinedByteRoundTripsAndNothingElseEncodes) {
  const auto page = Windows1252();
  int defined = 0;
  for (int byte = 0; byte < 256; ++byte) {
    const char16_t ch = page->ToUnicode(static_cast<unsigned char>(byte));
    if (ch == u'\uFFFD') continue;
    ++defined;
    EXPECT_EQ(page->FromUnicode(ch), byte);
  }
  EXPECT_EQ(defined, 251);
  EXPECT_EQ(page->FromUnicode(u'\u0080'), -1);  // C1 controls are not Windows-1252 characters
  EXPECT_EQ(page->FromUnicode(u'\uFFFD'), -1);
  EXPECT_EQ(page->FromUnicode(u'\u0B95'), -1);
}

TEST(Windows1252, EncodeShowsEachUnshowableCharacterAsOneQuestionMark) {
  const auto page = Windows1252();
  EXPECT_EQ(page->Encode(u"é€க😀x"), "\xE9\x80??x");
  EXPECT_EQ(page->Encode(u"\xD83D"), "?");  // a lone surrogate is one unshowable character
  EXPECT_EQ(page->Decode("\xE9\x80\x81"), u"é€\uFFFD");
}

class FixedPage final : public CodePage {
 public:
  int Number() const override { return 874; }
  char16_t ToUnicode(unsigned char byte) const override { return byte == 0xA1 ? u'\u0E01' : byte; }
  int FromUnicode(char16_t ch) const override { return ch < 0x80 ? ch : -1; }
};

TEST(SystemCodePage, IsWindows1252UntilAnotherIsInstalled) {
  EXPECT_EQ(SystemCodePage().Number(), 1252);
  auto previous = SetSystemCodePage(std::make_shared<FixedPage>());
  EXPECT_EQ(SystemCodePage().Number(), 874);
  EXPECT_EQ(SystemCodePage().Decode("\xA1"), u"\u0E01");
  SetSystemCodePage(nullptr);  // a null page falls back to the default
  EXPECT_EQ(SystemCodePage().Number(), 1252);
  SetSystemCodePage(previous);
}

}  // namespace
}  // namespace quilom::settings
