// The shipped TSCII tables against glibc's TSCII converter, called through iconv(3), in both
// directions and over every syllable. Where glibc departs from TSCII 1.7 (the prefix vowel
// signs of the grantha letters), the test says so in its name and holds ours to the standard.

#include <gtest/gtest.h>

#include <sstream>
#include <utility>

#include "converter/encoding_list.hpp"
#include "converter/legacy_bytes.hpp"
#include "shipped_tables_reference.hpp"
#include "support/temp_folder.hpp"

namespace quilom::converter {
namespace {

using reference::GlibcTscii;
using reference::IsGrantha;
using reference::kPrefixSigns;

std::filesystem::path Folder() { return testing::SourceDataRoot() / "Tamil Fonts Converter"; }

class TsciiGlibcReference : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!glibc_.ok()) GTEST_SKIP() << "this C library has no TSCII converter";
    const std::optional<int> position = LoadEncodingList(Folder()).Position(u"Tscii");
    ASSERT_TRUE(position);
    tables_ = reference::LoadTables(Folder(), *position);
  }

  std::string OurBytes(const std::u16string& text) const {
    std::size_t unencodable = 0;
    std::string bytes = TextToLegacyBytes(tables_.toLegacy->Apply(text), unencodable);
    EXPECT_EQ(unencodable, 0u) << text::Utf16ToUtf8(text);
    return bytes;
  }
  std::u16string OurText(const std::string& bytes) const { return tables_.toUnicode->Apply(LegacyBytesToText(bytes)); }
  std::string GlibcBytes(const std::u16string& text) const {
    const std::optional<std::string> bytes = glibc_.Encode(text);
    EXPECT_TRUE(bytes) << "glibc cannot write " << text::Utf16ToUtf8(text);
    return bytes.value_or("");
  }
  std::u16string GlibcText(const std::string& bytes) const {
    return reference::Composed(glibc_.Decode(bytes).value_or(u"(glibc failed)"));
  }

  GlibcTscii glibc_;
  reference::Tables tables_;
};

bool HasGranthaPrefixSign(const std::u16string& syllable) {
  return IsGrantha(syllable) && kPrefixSigns.find(syllable.back()) != std::u16string_view::npos;
}

std::vector<std::u16string> GranthaWithPrefixSigns() {
  std::vector<std::u16string> all;
  for (const std::u16string& syllable : reference::Syllables()) {
    if (HasGranthaPrefixSign(syllable)) all.push_back(syllable);
  }
  return all;
}

std::string Hex(const std::string& bytes) {
  std::ostringstream out;
  for (unsigned char b : bytes) out << std::hex << std::uppercase << static_cast<int>(b) << ' ';
  return out.str();
}

TEST_F(TsciiGlibcReference, WeReadEverySyllableGlibcWrites) {
  for (const std::u16string& syllable : reference::Syllables()) {
    const std::string bytes = GlibcBytes(syllable);
    EXPECT_EQ(OurText(bytes), syllable) << text::Utf16ToUtf8(syllable) << " as glibc writes it: " << Hex(bytes);
  }
}

TEST_F(TsciiGlibcReference, GlibcReadsEverySyllableWeWriteButTheGranthaPrefixSigns) {
  int compared = 0;
  for (const std::u16string& syllable : reference::Syllables()) {
    if (HasGranthaPrefixSign(syllable)) continue;
    ++compared;
    EXPECT_EQ(GlibcText(OurBytes(syllable)), syllable)
        << text::Utf16ToUtf8(syllable) << ": " << Hex(OurBytes(syllable));
  }
  EXPECT_EQ(compared, static_cast<int>(reference::Syllables().size() - GranthaWithPrefixSigns().size()));
}

// TSCII 1.7 puts the prefix glyph first for every consonant, as the fonts draw it; glibc writes
// it after a grantha letter, in Unicode's order. We read both and write the standard's.
TEST_F(TsciiGlibcReference, GlibcWritesGranthaPrefixSignsAfterTheLetterWeReadBothOrders) {
  const std::vector<std::u16string> syllables = GranthaWithPrefixSigns();
  ASSERT_EQ(syllables.size(), 30u);
  for (const std::u16string& syllable : syllables) {
    const std::u16string letter = syllable.substr(0, syllable.size() - 1);
    const std::string ours = OurBytes(syllable), glibc = GlibcBytes(syllable);
    EXPECT_EQ(glibc.substr(0, 1), OurBytes(letter)) << text::Utf16ToUtf8(syllable) << ": " << Hex(glibc);
    EXPECT_NE(ours.substr(0, 1), OurBytes(letter)) << text::Utf16ToUtf8(syllable) << ": " << Hex(ours);
    EXPECT_EQ(OurText(ours), syllable) << Hex(ours);
    EXPECT_EQ(OurText(glibc), syllable) << Hex(glibc);
  }
}

// Read in the standard's order, glibc keeps the prefix sign where it stands: ெஜ for ஜெ.
TEST_F(TsciiGlibcReference, GlibcReadsGranthaPrefixSignsOutOfOrder) {
  const std::u16string_view before = u"\u0BC6\u0BC7\u0BC8\u0BC6\u0BC7\u0BC6";
  const std::u16string_view after[] = {u"", u"", u"", u"\u0BBE", u"\u0BBE", u"\u0BD7"};
  for (const std::u16string& syllable : GranthaWithPrefixSigns()) {
    const std::size_t sign = kPrefixSigns.find(syllable.back());
    const std::u16string letter = syllable.substr(0, syllable.size() - 1);
    const std::u16string glibcReading = std::u16string(1, before[sign]) + letter + std::u16string(after[sign]);
    EXPECT_EQ(glibc_.Decode(OurBytes(syllable)), glibcReading) << text::Utf16ToUtf8(syllable);
  }
}

TEST_F(TsciiGlibcReference, LoneVowelSignsBothWays) {
  for (const std::u16string& sign : reference::LoneSigns()) {
    if (sign == u"\u0BCD") {
      // Neither TSCII 1.7 nor glibc has a pulli of its own.
      EXPECT_FALSE(glibc_.Encode(sign));
      continue;
    }
    // glibc writes ௌ with the ே glyph in front, as it does after a consonant; TSCII 1.7 with ெ.
    if (sign != u"\u0BCC") {
      EXPECT_EQ(OurBytes(sign), GlibcBytes(sign)) << text::Utf16ToUtf8(sign);
    }
    EXPECT_EQ(OurText(GlibcBytes(sign)), sign) << text::Utf16ToUtf8(sign);
    EXPECT_EQ(GlibcText(OurBytes(sign)), sign) << text::Utf16ToUtf8(sign);
  }
}

TEST_F(TsciiGlibcReference, NumeralsSriAaythamQuotesAndCopyrightAreTheSameBytes) {
  std::vector<std::u16string> units = reference::Numerals();
  for (std::u16string_view more : {u"ஸ்ரீ", u"ஃ", u"‘", u"’", u"“", u"”", u"©"}) units.emplace_back(more);
  for (const std::u16string& unit : units) {
    EXPECT_EQ(Hex(OurBytes(unit)), Hex(GlibcBytes(unit))) << text::Utf16ToUtf8(unit);
    EXPECT_EQ(OurText(GlibcBytes(unit)), unit) << text::Utf16ToUtf8(unit);
  }
}

// glibc reads both of TSCII's places for இ; it writes FE, as we do, since AD is the soft
// hyphen that word processors hide.
TEST_F(TsciiGlibcReference, BothPlacesOfIAreRead) {
  EXPECT_EQ(Hex(OurBytes(u"இ")), Hex(GlibcBytes(u"இ")));
  for (const std::string bytes : {"\xAD", "\xFE"}) {
    EXPECT_EQ(OurText(bytes), u"இ") << Hex(bytes);
    EXPECT_EQ(GlibcText(bytes), u"இ") << Hex(bytes);
  }
}

std::vector<std::u16string> ParagraphWords() {
  std::vector<std::u16string> words = {u"ஹோட்டல்", u"ஜெர்மனி", u"அபிஷேகம்", u"ஜௌளி", u"க்ஷேத்திரம்", u"ஸ்ரீ"};
  for (std::u16string& word : reference::ParagraphWords(QUILOM_SOURCE_DIR)) words.push_back(std::move(word));
  return words;
}

// True when glibc's bytes hold a grantha letter, a prefix-sign glyph and a consonant: read as
// TSCII 1.7 writes it, the sign belongs to that consonant (ஷ கே), and so we read it, for text
// written the standard's way has that order; glibc means the sign of the letter (ஷே க).
bool GlibcOrderIsAmbiguous(const std::string& bytes) {
  const std::string_view grantha = "\x83\x84\x85\x86\x87", prefix = "\xA6\xA7\xA8";
  for (std::size_t i = 0; i + 2 < bytes.size(); ++i) {
    const auto consonant = static_cast<unsigned char>(bytes[i + 2]);
    if (grantha.find(bytes[i]) != std::string_view::npos && prefix.find(bytes[i + 1]) != std::string_view::npos &&
        ((consonant >= 0xB8 && consonant <= 0xC9) || grantha.find(bytes[i + 2]) != std::string_view::npos)) {
      return true;
    }
  }
  return false;
}

TEST_F(TsciiGlibcReference, GlibcGranthaOrderBeforeAConsonantReadsAsTheStandardsPrefixedConsonant) {
  EXPECT_TRUE(GlibcOrderIsAmbiguous(GlibcBytes(u"அபிஷேகம்")));
  EXPECT_EQ(OurText(GlibcBytes(u"அபிஷேகம்")), u"அபிஷகேம்");
  EXPECT_EQ(OurText(OurBytes(u"ராஜகோபால்")), u"ராஜகோபால்");
  EXPECT_FALSE(GlibcOrderIsAmbiguous(GlibcBytes(u"ஜெர்மனி")));
}

TEST_F(TsciiGlibcReference, WordsOfRealTextBothWays) {
  const std::vector<std::u16string> words = ParagraphWords();
  const std::vector<std::u16string> granthaPrefix = GranthaWithPrefixSigns();
  ASSERT_GT(words.size(), 300u);
  for (const std::u16string& word : words) {
    if (!GlibcOrderIsAmbiguous(GlibcBytes(word))) {
      EXPECT_EQ(OurText(GlibcBytes(word)), word) << text::Utf16ToUtf8(word);
    }
    if (std::none_of(granthaPrefix.begin(), granthaPrefix.end(),
                     [&](const std::u16string& s) { return word.find(s) != std::u16string::npos; })) {
      EXPECT_EQ(GlibcText(OurBytes(word)), word) << text::Utf16ToUtf8(word);
    }
  }
}

}  // namespace
}  // namespace quilom::converter
