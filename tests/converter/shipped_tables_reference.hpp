#pragma once

// What the checks of the shipped tables share with each other and with the TSCII report
// program: the units a table is walked over, the shipped tables of one encoding, the gaps the
// notes file admits, and glibc's iconv as the reference TSCII converter. Header-only, so that
// the report program in bench/ uses the very same walk without the test library.

#include <iconv.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "converter/convert_checks.hpp"
#include "converter/pair_replacer.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::converter::reference {

inline std::vector<std::u16string> Consonants() {
  return {u"க", u"ங", u"ச", u"ஞ", u"ட", u"ண", u"த", u"ந", u"ப", u"ம", u"ய", u"ர",
          u"ல", u"வ", u"ழ", u"ள", u"ற", u"ன", u"ஜ", u"ஷ", u"ஸ", u"ஹ", u"க்ஷ"};
}

// The dependent vowel signs after a consonant, pulli first.
inline constexpr std::u16string_view kSigns =
    u"\u0BCD\u0BBE\u0BBF\u0BC0\u0BC1\u0BC2\u0BC6\u0BC7\u0BC8\u0BCA\u0BCB\u0BCC";
// The signs whose glyph stands before the consonant's.
inline constexpr std::u16string_view kPrefixSigns = u"\u0BC6\u0BC7\u0BC8\u0BCA\u0BCB\u0BCC";

// Every syllable of the Tamil script that the tables are built for.
inline std::vector<std::u16string> Syllables() {
  std::vector<std::u16string> all;
  for (char16_t v : std::u16string(u"அஆஇஈஉஊஎஏஐஒஓஔஃ")) all.emplace_back(1, v);
  for (const std::u16string& consonant : Consonants()) {
    all.push_back(consonant);
    for (char16_t sign : kSigns) all.push_back(consonant + sign);
  }
  all.push_back(u"ஸ்ரீ");
  return all;
}

inline std::vector<std::u16string> Numerals() {
  std::vector<std::u16string> all;
  for (char16_t c = 0x0BE6; c <= 0x0BF2; ++c) all.emplace_back(1, c);
  return all;
}

inline std::vector<std::u16string> LoneSigns() {
  std::vector<std::u16string> all;
  for (char16_t sign : kSigns) all.emplace_back(1, sign);
  all.emplace_back(u"\u0BD7");
  return all;
}

inline std::vector<std::u16string> Ascii() {
  std::vector<std::u16string> all;
  for (char16_t c = 0x21; c < 0x7F; ++c) all.emplace_back(1, c);
  return all;
}

// The marks word processors put into prose for quotes, dashes and lists.
inline std::vector<std::u16string> Typographic() {
  std::vector<std::u16string> all;
  for (char16_t c : std::u16string_view(u"‘’“”–—…•")) all.emplace_back(1, c);
  return all;
}

// Every unit the notes file reports on, in its order.
inline std::vector<std::u16string> AllUnits() {
  std::vector<std::u16string> all = Syllables();
  for (const auto& more : {Numerals(), LoneSigns(), Ascii(), Typographic()}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
}

inline bool HasTamil(std::u16string_view text) {
  return std::any_of(text.begin(), text.end(), [](char16_t c) { return c >= 0x0B80 && c <= 0x0BFF; });
}

// TSCII's letters outside the native set: ஜ ஷ ஸ ஹ and க்ஷ.
inline bool IsGrantha(std::u16string_view syllable) {
  return syllable.starts_with(u"ஜ") || syllable.starts_with(u"ஷ") || syllable.starts_with(u"ஸ") ||
         syllable.starts_with(u"ஹ") || syllable.starts_with(u"க்ஷ");
}

// Two-part vowel signs in one piece, so that canonically equal spellings compare equal.
inline std::u16string Composed(std::u16string text) {
  text = text::ReplaceAll(text, u"\u0BC6\u0BD7", u"\u0BCC");
  text = text::ReplaceAll(text, u"\u0BC6\u0BBE", u"\u0BCA");
  return text::ReplaceAll(text, u"\u0BC7\u0BBE", u"\u0BCB");
}

// One encoding's tables: legacy to Unicode with the font's quotes kept (the table that tells
// whether a character passes through), and both Unicode-to-legacy forms.
struct Tables {
  std::shared_ptr<PairReplacer> toUnicode, toLegacy, toLegacyPlainRa;
  bool RoundTrips(const std::u16string& unit) const {
    for (PairReplacer* way : {toLegacy.get(), toLegacyPlainRa.get()}) {
      const std::u16string legacy = way->Apply(unit);
      if (HasTamil(legacy) || toUnicode->Apply(legacy) != unit) return false;
    }
    return true;
  }
};

inline std::vector<TablePair> LoadPairs(const std::filesystem::path& folder, int id) {
  return ParseConversionTable(LoadTableText(folder, id)).pairs;
}

inline Tables LoadTables(const std::filesystem::path& folder, int position) {
  const auto load = [&](int id) { return std::make_shared<PairReplacer>(LoadPairs(folder, id)); };
  return {load(*LegacyToUnicodeTableId(position, false)), load(*UnicodeToLegacyTableId(position, true)),
          load(*UnicodeToLegacyTableId(position, false))};
}

// The units the notes file says each encoding cannot carry (every "cannot carry" line), by
// encoding name. Each item ends with its code points in brackets, which are read here: the
// items themselves may be commas or brackets.
inline std::map<std::u16string, std::set<std::u16string>> NotedGaps(const std::filesystem::path& folder) {
  std::map<std::u16string, std::set<std::u16string>> gaps;
  std::u16string current;
  const std::regex item(R"(\(([0-9A-F]{4}(?: [0-9A-F]{4})*)\))");
  for (const std::u16string& line : text::Split(settings::ReadTextFile(folder / "Encoding notes.txt"), text::kCrLf)) {
    if (!line.empty() && line[0] != u' ' && line.find(u"(list position") != std::u16string::npos) {
      current = line.substr(0, line.find(u" ("));
      gaps[current];
    } else if (text::StartsWith(line, u"  cannot carry")) {
      const std::string utf8 = text::Utf16ToUtf8(line.substr(line.find(u':')));
      for (std::sregex_iterator it(utf8.begin(), utf8.end(), item), end; it != end; ++it) {
        const std::string codes = (*it)[1].str();
        std::u16string unit;
        for (std::size_t at = 0; at < codes.size(); at += 5) {
          unit.push_back(static_cast<char16_t>(std::stoi(codes.substr(at, 4), nullptr, 16)));
        }
        gaps[current].insert(unit);
      }
    }
  }
  return gaps;
}

// The Tamil words of the converter tests' paragraphs (tests/converter/data/tamil_paragraphs.txt).
inline std::vector<std::u16string> ParagraphWords(const std::filesystem::path& sourceDir) {
  std::ifstream file(sourceDir / "tests" / "converter" / "data" / "tamil_paragraphs.txt", std::ios::binary);
  std::stringstream buffer;
  buffer << file.rdbuf();
  std::vector<std::u16string> words;
  std::u16string word;
  for (char16_t ch : text::Utf8ToUtf16(buffer.str()) + u" ") {
    if (ch >= 0x0B80 && ch <= 0x0BFF) {
      word.push_back(ch);
    } else if (!word.empty()) {
      words.push_back(std::exchange(word, {}));
    }
  }
  return words;
}

// True when `word` holds one of the syllables the encoding cannot carry.
inline bool HoldsGap(const std::u16string& word, const std::set<std::u16string>& gaps) {
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

// Prose as people write it: Tamil with English words, digits and punctuation.
inline constexpr std::u16string_view kProse =
    u"விலை 250/- மட்டும்; (GST 18% உட்பட) - \"அருமை!\" என்றார் 'ராஜா'.\n"
    u"கூட்டம் 10:30 மணிக்கு, Chennai நகரில் நடக்குமா? ஆம்: ஜெர்மனி, ஹோட்டல், க்ஷேத்திரம் - 3/4 பங்கு.\n"
    u"பொங்கல், தங்கம், ஸ்ரீ ராமன் (Sri Raman) வந்தார்! ஔவை, ஷோ, ஜௌளி, ளொ.\n"
    u"“நல்லது” – என்றார்; ‘சரி’ — என்றேன்…";

inline std::vector<std::u16string> Tokens(std::u16string_view text) {
  return text::Split(text::ReplaceAll(text, u"\n", u" "), u" ");
}

// glibc's iconv between two of its encodings.
class Iconv {
 public:
  Iconv(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
  ~Iconv() {
    if (ok()) iconv_close(handle_);
  }
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;
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

// glibc's TSCII converter in both directions, speaking UTF-16 like the tables.
class GlibcTscii {
 public:
  bool ok() const { return toTscii_.ok() && fromTscii_.ok(); }
  std::optional<std::string> Encode(const std::u16string& text) const {
    return toTscii_.Convert(text::Utf16ToUtf8(text));
  }
  std::optional<std::u16string> Decode(const std::string& bytes) const {
    const std::optional<std::string> utf8 = fromTscii_.Convert(bytes);
    if (!utf8) return std::nullopt;
    return text::Utf8ToUtf16(*utf8);
  }

 private:
  Iconv toTscii_{"TSCII", "UTF-8"};
  Iconv fromTscii_{"UTF-8", "TSCII"};
};

}  // namespace quilom::converter::reference
