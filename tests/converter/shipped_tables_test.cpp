// The shipped conversion tables, checked as a user would: every syllable an encoding claims to
// carry comes back from a round trip, TSCII agrees with glibc's converter, and each encoding
// still writes a known paragraph as it did (golden files).

#include <gtest/gtest.h>
#include <iconv.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "converter/convert_checks.hpp"
#include "converter/converter_lists.hpp"
#include "converter/encoding_list.hpp"
#include "converter/legacy_bytes.hpp"
#include "converter/pair_replacer.hpp"
#include "settings/text_file.hpp"
#include "support/temp_folder.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::converter {
namespace {

std::filesystem::path Folder() { return testing::SourceDataRoot() / "Tamil Fonts Converter"; }

std::filesystem::path TestData() { return std::filesystem::path(QUILOM_SOURCE_DIR) / "tests" / "converter"; }

// Every syllable of the Tamil script that the tables are built for.
std::vector<std::u16string> Syllables() {
  std::vector<std::u16string> all;
  for (char16_t v : std::u16string(u"அஆஇஈஉஊஎஏஐஒஓஔஃ")) all.emplace_back(1, v);
  const std::vector<std::u16string> consonants = {u"க", u"ங", u"ச", u"ஞ", u"ட", u"ண", u"த", u"ந",
                                                  u"ப", u"ம", u"ய", u"ர", u"ல", u"வ", u"ழ", u"ள",
                                                  u"ற", u"ன", u"ஜ", u"ஷ", u"ஸ", u"ஹ", u"க்ஷ"};
  const std::u16string signs = u"\u0BCD\u0BBE\u0BBF\u0BC0\u0BC1\u0BC2\u0BC6\u0BC7\u0BC8\u0BCA\u0BCB\u0BCC";
  for (const std::u16string& consonant : consonants) {
    all.push_back(consonant);
    for (char16_t sign : signs) all.push_back(consonant + sign);
  }
  all.push_back(u"ஸ்ரீ");
  return all;
}

bool HasTamil(std::u16string_view text) {
  return std::any_of(text.begin(), text.end(), [](char16_t c) { return c >= 0x0B80 && c <= 0x0BFF; });
}

struct Tables {
  std::shared_ptr<PairReplacer> toUnicode, toLegacy, toLegacyPlainRa;
};

Tables LoadTables(int position) {
  const auto load = [](int id) {
    return std::make_shared<PairReplacer>(ParseConversionTable(LoadTableText(Folder(), id)).pairs);
  };
  return {load(*LegacyToUnicodeTableId(position, true)), load(*UnicodeToLegacyTableId(position, true)),
          load(*UnicodeToLegacyTableId(position, false))};
}

// The syllables the notes file says an encoding cannot carry, by encoding name.
std::map<std::u16string, std::set<std::u16string>> NotedGaps() {
  std::map<std::u16string, std::set<std::u16string>> gaps;
  std::u16string current;
  for (const std::u16string& line : text::Split(settings::ReadTextFile(Folder() / "Encoding notes.txt"), text::kCrLf)) {
    if (!line.empty() && line[0] != u' ' && line.find(u"(list position") != std::u16string::npos) {
      current = line.substr(0, line.find(u" ("));
      gaps[current];
    } else if (text::StartsWith(line, u"  cannot carry: ")) {
      for (const std::u16string& item : text::Split(line.substr(16), u", ")) {
        gaps[current].insert(item.substr(0, item.find(u" (")));
      }
    }
  }
  return gaps;
}

std::vector<std::u16string> ParagraphWords() {
  std::ifstream file(TestData() / "data" / "tamil_paragraphs.txt", std::ios::binary);
  std::stringstream buffer;
  buffer << file.rdbuf();
  std::vector<std::u16string> words;
  std::u16string word;
  for (char16_t ch : text::Utf8ToUtf16(buffer.str()) + u" ") {
    if (ch >= 0x0B80 && ch <= 0x0BFF) {
      word.push_back(ch);
    } else if (!word.empty()) {
      words.push_back(word);
      word.clear();
    }
  }
  return words;
}

TEST(ShippedTables, EveryListedEncodingHasItsFourTables) {
  const EncodingList list = LoadEncodingList(Folder());
  ASSERT_GE(list.names.size(), 20u);
  EXPECT_EQ(list.names[0], u"Unicode");
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    for (int id : {100 + position, 151 + position, 202 + position, 253 + position}) {
      EXPECT_TRUE(std::filesystem::exists(TablePath(Folder(), id))) << id;
    }
  }
  EXPECT_FALSE(std::filesystem::exists(TablePath(Folder(), 101 + static_cast<int>(list.names.size()))));
  // The other per-encoding files have one line per list position.
  for (std::u16string_view name :
       {kSearchPatternsFile, kDefaultFontsFile, std::u16string_view(u"QuilomPlus-LegacyQuotes.txt")}) {
    EXPECT_EQ(text::Split(settings::ReadTextFile(Folder() / std::u16string(name)), text::kCrLf).size(),
              list.names.size())
        << text::Utf16ToUtf8(name);
  }
}

TEST(ShippedTables, RoundTripGivesBackEverySyllableButTheNotedGaps) {
  const EncodingList list = LoadEncodingList(Folder());
  const auto gaps = NotedGaps();
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    const std::u16string& name = list.names[static_cast<std::size_t>(position)];
    Tables tables = LoadTables(position);
    std::set<std::u16string> failed;
    for (const std::u16string& syllable : Syllables()) {
      for (PairReplacer* toLegacy : {tables.toLegacy.get(), tables.toLegacyPlainRa.get()}) {
        const std::u16string legacy = toLegacy->Apply(syllable);
        if (HasTamil(legacy) || tables.toUnicode->Apply(legacy) != syllable) failed.insert(syllable);
      }
    }
    ASSERT_TRUE(gaps.count(name)) << text::Utf16ToUtf8(name) << " has no notes";
    EXPECT_EQ(failed, gaps.at(name)) << text::Utf16ToUtf8(name);
  }
}

// True when `word` holds one of the syllables the encoding cannot carry.
bool HoldsGap(const std::u16string& word, const std::set<std::u16string>& gaps) {
  for (const std::u16string& gap : gaps) {
    if (gap.size() >= 3 && word.find(gap) != std::u16string::npos) return true;
  }
  for (std::size_t i = 0; i < word.size(); ++i) {
    const bool consonant = word[i] >= 0x0B95 && word[i] <= 0x0BB9;
    const bool marked = consonant && i + 1 < word.size() && word[i + 1] >= 0x0BBE && word[i + 1] <= 0x0BCD;
    if (gaps.count(word.substr(i, marked ? 2 : 1))) return true;
    if (marked) ++i;
  }
  return false;
}

TEST(ShippedTables, WordsOfRealTextSurviveTheRoundTripInBothForms) {
  const EncodingList list = LoadEncodingList(Folder());
  const auto gaps = NotedGaps();
  const std::vector<std::u16string> words = ParagraphWords();
  ASSERT_GT(words.size(), 300u);
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    const std::u16string& name = list.names[static_cast<std::size_t>(position)];
    Tables tables = LoadTables(position);
    for (const std::u16string& word : words) {
      if (HoldsGap(word, gaps.at(name))) continue;
      EXPECT_EQ(tables.toUnicode->Apply(tables.toLegacy->Apply(word)), word)
          << text::Utf16ToUtf8(name) << ": " << text::Utf16ToUtf8(word);
      EXPECT_EQ(tables.toUnicode->Apply(tables.toLegacyPlainRa->Apply(word)), word)
          << text::Utf16ToUtf8(name) << " without the separate ர forms: " << text::Utf16ToUtf8(word);
    }
  }
}

// Two-part vowel signs in one piece, so that canonically equal spellings compare equal.
std::string Composed(std::optional<std::string> utf8) {
  if (!utf8) return "(failed)";
  std::u16string text = text::Utf8ToUtf16(*utf8);
  text = text::ReplaceAll(text, u"\u0BC6\u0BD7", u"\u0BCC");
  text = text::ReplaceAll(text, u"\u0BC6\u0BBE", u"\u0BCA");
  text = text::ReplaceAll(text, u"\u0BC7\u0BBE", u"\u0BCB");
  return text::Utf16ToUtf8(text);
}

class Iconv {
 public:
  Iconv(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
  ~Iconv() {
    if (ok()) iconv_close(handle_);
  }
  bool ok() const { return handle_ != reinterpret_cast<iconv_t>(-1); }
  std::optional<std::string> Convert(std::string input) const {
    std::string output(input.size() * 4 + 16, '\0');
    char* in = input.data();
    char* out = output.data();
    std::size_t inLeft = input.size(), outLeft = output.size();
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(handle_, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1)) return std::nullopt;
    if (iconv(handle_, nullptr, nullptr, &out, &outLeft) == static_cast<std::size_t>(-1)) return std::nullopt;
    output.resize(output.size() - outLeft);
    return output;
  }

 private:
  iconv_t handle_;
};

// glibc writes the grantha consonants' prefix vowel signs after the consonant (in Unicode's
// order, not the glyphs' visual order that TSCII fonts need), so those syllables cannot be
// compared with it.
bool GlibcWritesInLogicalOrder(const std::u16string& syllable) {
  const bool grantha = syllable.starts_with(u"ஜ") || syllable.starts_with(u"ஷ") || syllable.starts_with(u"ஸ") ||
                       syllable.starts_with(u"ஹ") || syllable.starts_with(u"க்ஷ");
  return grantha && std::u16string_view(u"\u0BC6\u0BC7\u0BC8\u0BCA\u0BCB\u0BCC").find(syllable.back()) !=
                        std::u16string_view::npos;
}

TEST(ShippedTables, TsciiAgreesWithGlibcBothWays) {
  const Iconv toTscii("TSCII", "UTF-8");
  const Iconv fromTscii("UTF-8", "TSCII");
  if (!toTscii.ok() || !fromTscii.ok()) GTEST_SKIP() << "this C library has no TSCII converter";
  const std::optional<int> position = LoadEncodingList(Folder()).Position(u"Tscii");
  ASSERT_TRUE(position);
  Tables tables = LoadTables(*position);
  int compared = 0;
  for (const std::u16string& syllable : Syllables()) {
    if (GlibcWritesInLogicalOrder(syllable)) continue;
    ++compared;
    const std::string utf8 = text::Utf16ToUtf8(syllable);
    // Ours read by glibc.
    std::size_t unencodable = 0;
    const std::string ourBytes = TextToLegacyBytes(tables.toLegacy->Apply(syllable), unencodable);
    EXPECT_EQ(Composed(fromTscii.Convert(ourBytes)), utf8) << utf8;
    // glibc's read by ours.
    const std::optional<std::string> glibcBytes = toTscii.Convert(utf8);
    ASSERT_TRUE(glibcBytes) << utf8;
    EXPECT_EQ(tables.toUnicode->Apply(LegacyBytesToText(*glibcBytes)), syllable) << utf8;
  }
  EXPECT_GT(compared, 250);
  // Whole words of real text, both ways.
  for (const std::u16string& word : ParagraphWords()) {
    std::size_t unencodable = 0;
    EXPECT_EQ(Composed(fromTscii.Convert(TextToLegacyBytes(tables.toLegacy->Apply(word), unencodable))),
              text::Utf16ToUtf8(word));
  }
}

TEST(ShippedTables, GoldenParagraphsPerEncoding) {
  std::ifstream input(TestData() / "data" / "tamil_paragraphs.txt", std::ios::binary);
  std::string line, golden;
  for (int i = 1; std::getline(input, line); ++i) {
    if (i == 1 || i == 11) golden += line + "\n";
  }
  const std::u16string unicode = text::Utf8ToUtf16(golden);
  const EncodingList list = LoadEncodingList(Folder());
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    const std::u16string& name = list.names[static_cast<std::size_t>(position)];
    const std::filesystem::path file = TestData() / "golden" / (text::Utf16ToUtf8(name) + ".bin");
    ASSERT_TRUE(std::filesystem::exists(file)) << file;
    const std::string expected = testing::ReadBytes(file);
    const std::u16string expectedText = DecodeTextFileBytes(expected);
    Tables tables = LoadTables(position);
    EXPECT_EQ(tables.toLegacy->Apply(unicode), expectedText) << text::Utf16ToUtf8(name);
  }
}

}  // namespace
}  // namespace quilom::converter
