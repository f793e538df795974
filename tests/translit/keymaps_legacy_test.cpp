// The keymaps that type Tamil into legacy font encodings: typed key by key, they must give
// what the converter makes of the Unicode phonetic keymap's text for the same keys, even
// where the font writes a vowel sign before its consonant; TSCII is checked against glibc.
#include <gtest/gtest.h>
#include <iconv.h>

#include <string>
#include <vector>

#include "converter/conversion_table.hpp"
#include "keymaps_typist.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"

namespace quilom::testing {
namespace {

const std::vector<std::string> kEncodings = {"Bamini", "Tscii", "Tab", "Tam", "Stmzh", "Shreelipi"};
// Short and long vowels on both sides of their consonants, doubled consonants, ஐ and ஔ.
const char16_t kWords[] =
    u"vaNakkam kolai thamizh pEraRignar kaunthi veLLi aRivu kaappiyam puuththa "
    u"mozhi theyvam naaLitazh koottam";

std::filesystem::path ConverterFolder() { return SourceDataRoot() / "Tamil Fonts Converter"; }

std::u16string ToLegacy(const std::string& encoding, std::u16string_view unicode) {
  const auto names =
      text::Split(settings::ReadTextFile(ConverterFolder() / "QuilomPlus-TamilFontEncodings.txt"), u"\r\n");
  const auto position = std::find(names.begin(), names.end(), text::Utf8ToUtf16(encoding)) - names.begin();
  const auto table = converter::ParseConversionTable(
      settings::ReadTextFile(ConverterFolder() / "tables" / (std::to_string(202 + position) + ".txt")));
  EXPECT_FALSE(table.pairs.empty()) << encoding;
  // Each pair in turn, as one replace-all: left to right, never searching what it inserted.
  std::u16string text(unicode);
  for (const auto& pair : table.pairs) {
    if (pair.find.empty()) continue;
    for (size_t at = 0; (at = text.find(pair.find, at)) != std::u16string::npos; at += pair.replacement.size()) {
      text.replace(at, pair.find.size(), pair.replacement);
    }
  }
  return text;
}

TEST(LegacyEncodingKeymaps, TypeWhatTheConverterMakesOfTheUnicodeText) {
  KeymapTypist unicode(u"Tamil-Unicode-PhoneticTransliteration");
  const auto expectedUnicode = unicode.Type(kWords);
  for (const auto& encoding : kEncodings) {
    KeymapTypist legacy(u"Tamil-" + text::Utf8ToUtf16(encoding) + u"-PhoneticTransliteration");
    ASSERT_EQ(legacy.outcome, translit::LoadOutcome::Loaded) << encoding;
    EXPECT_TRUE(legacy.messages.empty()) << encoding;
    EXPECT_EQ(legacy.Type(kWords), ToLegacy(encoding, expectedUnicode)) << encoding;
  }
}

std::string Windows1252Bytes(std::u16string_view text) {
  iconv_t cd = iconv_open("CP1252", "UTF-8");
  std::string in = text::Utf16ToUtf8(text), out(in.size() * 2 + 4, '\0');
  char* inPtr = in.data();
  char* outPtr = out.data();
  size_t inLeft = in.size(), outLeft = out.size();
  const bool ok = iconv(cd, &inPtr, &inLeft, &outPtr, &outLeft) != static_cast<size_t>(-1);
  iconv_close(cd);
  EXPECT_TRUE(ok);
  out.resize(out.size() - outLeft);
  return out;
}

std::string FromTscii(const std::string& bytes) {
  iconv_t cd = iconv_open("UTF-8", "TSCII");
  std::string in = bytes, out(bytes.size() * 12 + 16, '\0');
  char* inPtr = in.data();
  char* outPtr = out.data();
  size_t inLeft = in.size(), outLeft = out.size();
  EXPECT_NE(iconv(cd, &inPtr, &inLeft, &outPtr, &outLeft), static_cast<size_t>(-1));
  iconv(cd, nullptr, nullptr, &outPtr, &outLeft);  // what the decoder still holds
  iconv_close(cd);
  out.resize(out.size() - outLeft);
  return out;
}

// glibc's iconv implements the published TSCII 1.7 standard. It writes ௌ in its decomposed
// form (ெ + ௗ); Unicode's composed form is what text and our keymaps hold.
TEST(LegacyEncodingKeymaps, TsciiTypingDecodesToTheUnicodeWords) {
  KeymapTypist unicode(u"Tamil-Unicode-PhoneticTransliteration");
  KeymapTypist tscii(u"Tamil-Tscii-PhoneticTransliteration");
  auto decoded = text::Utf8ToUtf16(FromTscii(Windows1252Bytes(tscii.Type(kWords))));
  for (size_t at; (at = decoded.find(u"\u0BC6\u0BD7")) != std::u16string::npos;) decoded.replace(at, 2, u"\u0BCC");
  EXPECT_EQ(text::Utf16ToUtf8(decoded), text::Utf16ToUtf8(unicode.Type(kWords)));
}

}  // namespace
}  // namespace quilom::testing
