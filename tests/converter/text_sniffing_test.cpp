#include "converter/text_sniffing.hpp"

#include <gtest/gtest.h>

#include <string>

#include "support/temp_folder.hpp"
#include "text/utf.hpp"

namespace quilom::converter {
namespace {

std::string Utf16Be(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) bytes += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
  return bytes;
}

std::string Utf16LeNoMark(std::u16string_view text) { return testing::Utf16LeWithMark(text).substr(2); }

TEST(SniffBytes, NamesWhatTheBytesAloneSettle) {
  const std::u16string tamil = u"மழைக்காலத்தில் அது நிறைந்து வழியும்.";
  const std::string tamilUtf8 = text::Utf16ToUtf8(tamil);
  struct Row {
    const char* what;
    std::string bytes;
    std::optional<TextKind> kind;
  };
  const Row rows[] = {
      {"nothing", "", TextKind::Empty},
      {"blanks and line ends", " \r\n\t ", TextKind::Empty},
      {"a UTF-8 mark alone", "\xEF\xBB\xBF\r\n", TextKind::Empty},
      {"UTF-16LE with its mark", testing::Utf16LeWithMark(u"Hello"), TextKind::Utf16},
      {"UTF-16BE with its mark", "\xFE\xFF" + Utf16Be(u"Hello"), TextKind::Utf16},
      {"UTF-16LE English, no mark", Utf16LeNoMark(u"Hello world"), TextKind::Utf16},
      {"UTF-16BE English, no mark", Utf16Be(u"Hello world"), TextKind::Utf16},
      // Tamil letters put no NUL anywhere; only the blank and the full stop do.
      {"UTF-16LE Tamil, no mark", Utf16LeNoMark(tamil), TextKind::Utf16},
      {"one NUL inside text", std::string("Hello\0world", 11), TextKind::Binary},
      {"control codes", "ab\x01\x02\x03\x04", TextKind::Binary},
      {"Unicode Tamil in UTF-8", tamilUtf8, TextKind::UnicodeTamil},
      {"Unicode Tamil with its mark", "\xEF\xBB\xBF" + tamilUtf8, TextKind::UnicodeTamil},
      {"Unicode Tamil among English", "Chennai (" + text::Utf16ToUtf8(u"சென்னை") + ")", TextKind::UnicodeTamil},
      // Legacy text: Bamini's ASCII, TSCII's Windows-1252 bytes, Private Use Area glyphs in UTF-8.
      {"Bamini", "mk;kh tPl;by; ,Uf;fpwhh;.", std::nullopt},
      {"TSCII bytes", "\xAA\xCC\xE5 \xB8\xA3\xA6\xB2", std::nullopt},
      {"Private Use Area glyphs", text::Utf16ToUtf8(u"\uE010\uE024 \uE031"), std::nullopt},
      {"a vertical tab from a word processor", "Hello\x0Bworld", std::nullopt},
      {"English", "Hello world", std::nullopt},
  };
  for (const Row& row : rows) EXPECT_EQ(SniffBytes(row.bytes), row.kind) << row.what;
}

TEST(SniffBytes, JudgesALongFileByAValidBeginning) {
  // Cut at 64 KiB, the sample ends inside a three-byte Tamil letter for two of these three
  // shifts unless the cut backs off to the letter's start; past the cut, nothing counts.
  std::string tamil;
  while (tamil.size() < 70000) tamil += text::Utf16ToUtf8(u"தமிழ் ");
  for (const std::size_t shift : {0, 1, 2}) {
    EXPECT_EQ(SniffBytes(std::string(shift, ' ') + tamil), TextKind::UnicodeTamil) << shift;
  }
  EXPECT_EQ(SniffBytes(std::string(65536, ' ') + tamil), TextKind::Empty);
}

TEST(DescribeTextKind, SaysWhatEachKindIsInWords) {
  EXPECT_EQ(DescribeTextKind(TextKind::English), "English text");
  EXPECT_EQ(DescribeTextKind(TextKind::UnicodeTamil), "Unicode Tamil text (UTF-8)");
  EXPECT_EQ(DescribeTextKind(TextKind::Utf16), "UTF-16 text");
  EXPECT_EQ(DescribeTextKind(TextKind::Binary), "binary data");
}

}  // namespace
}  // namespace quilom::converter
