// The ITRANS keymaps of the Indic languages through the real loader and engine: how syllables
// and conjuncts form, and that every letter of each script can be typed.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "keymaps_typist.hpp"

namespace quilom::testing {
namespace {

std::u16string Lfk(const std::string& language) {
  return text::Utf8ToUtf16(language) + u"-Unicode-PhoneticTransliteration";
}

TEST(IndicKeymaps, FormSyllablesConjunctsAndIndependentVowels) {
  KeymapTypist hindi(Lfk("Hindi"));
  const std::vector<std::pair<const char*, const char*>> rows = {
      {"k", "क्"},  // a consonant waits with its virama
      {"ka kaa kA ki kii", "क का का कि की"},
      {"kai kau", "कै कौ"},  // two-key vowels join whole
      {"kt kta", "क्त् क्त"},  // consonants in a row make a conjunct
      {"kae", "कए"},        // a vowel after a syllable stays independent
      {"ai au aa", "ऐ औ आ"},
      {"kRRi kR^i", "कृ कृ"},  // a vowel key that starts with a consonant key
      {"x kSh GY", "क्ष् क्ष् ज्ञ्"},
      {"qa za fa .Da", "क़ ज़ फ़ ड़"},  // nukta letters, as base + nukta
      {"kaM kaH ka.N", "कं कः कँ"},
      {"| ||", "। ॥"},
      {"kOfI", "कॉफ़ी"},
  };
  for (const auto& [keys, expected] : rows) EXPECT_EQ(hindi.TypeUtf8(keys), expected) << keys;
}

TEST(IndicKeymaps, GiveEachLanguageItsOwnLetters) {
  const std::vector<std::tuple<const char*, const char*, const char*>> rows = {
      {"Telugu", "e E o O", "ఎ ఏ ఒ ఓ"},  // short and long e, o in the south
      {"Kannada", "kaRa", "ಕಱ"},
      {"Malayalam", "avan_ kaDal_ zha", "അവൻ കഡൽ ഴ"},  // chillu letters
      {"Assamese", "ra va", "ৰ ৱ"},
      {"Bengali", "va ut_saba", "ব উৎসব"},
      {"Punjabi", "pa.njaabii .Da OM", "ਪੰਜਾਬੀ ੜ ੴ"},
      {"Oriya", "wa", "ୱ"},
      {"Sourashtra", "ka kaa k .H", "ꢒ ꢒꢵ ꢒ꣄ ꢴ"},
  };
  for (const auto& [language, keys, expected] : rows) {
    KeymapTypist typist(Lfk(language));
    EXPECT_EQ(typist.TypeUtf8(keys), expected) << language << ": " << keys;
  }
}

TEST(IndicKeymaps, HalantAfterAConsonantLeavesItsOneVirama) {
  const std::vector<std::tuple<const char*, const char*, const char*>> rows = {
      {"Hindi", "raam.h k.h kSh.h .D.h", "राम् क् क्ष् ड़्"},
      {"Hindi", "ka.h .h", "क् ्"},                   // after a vowel it is a virama of its own
      {"Hindi", "k.Da k.ja m.n k.N", "क्ड़ क्ज़ म्ं क्ँ"},  // a dot after a consonant still starts a dotted key
      {"Hindi", "vaak.hsiddhi", "वाक्सिद्धि"},
      {"Sanskrit", "manas.h", "मनस्"},
      {"Bengali", "t.h ut.hsaba", "ৎ উৎসব"},  // a vowelless t is written as khanda ta
      {"Bengali", "d.h", "দ্"},
      {"Assamese", "t.h", "ৎ"},
      {"Telugu", "k.h", "క్"},
      {"Kannada", "f.h", "ಫ಼್"},
      {"Malayalam", "n.h", "ന്"},
      {"Punjabi", ".D.h .Da", "ੜ੍ ੜ"},
  };
  for (const auto& [language, keys, expected] : rows) {
    KeymapTypist typist(Lfk(language));
    EXPECT_EQ(typist.TypeUtf8(keys), expected) << language << ": " << keys;
  }
}

// Every key that types a consonant with its virama types exactly that again with ".h" after it.
TEST(IndicKeymaps, NoConsonantKeyFollowedByHalantDoublesTheVirama) {
  for (const auto& language :
       {"Hindi", "Bengali", "Gujarati", "Punjabi", "Oriya", "Telugu", "Kannada", "Malayalam", "Sourashtra"}) {
    KeymapTypist typist(Lfk(language));
    const char16_t virama = typist.Type(u"k").back();
    int consonantKeys = 0;
    for (size_t i = 1; i < typist.tables->phoneticKeys.size(); ++i) {
      const auto& key = typist.tables->phoneticKeys[i];
      const auto alone = typist.Type(key);
      const bool endsInHalant = key.size() >= 2 && key.compare(key.size() - 2, 2, u".h") == 0;
      if (endsInHalant || alone.size() < 2 || alone.back() != virama) continue;
      ++consonantKeys;
      const bool khandaTa = std::string_view(language) == "Bengali" && key == u"t";
      if (!khandaTa) {
        EXPECT_EQ(typist.Type(key + u".h"), alone) << language << ": " << text::Utf16ToUtf8(key);
      }
    }
    EXPECT_GT(consonantKeys, 30) << language;
  }
}

// U+0CDE is named KANNADA LETTER FA, but it is the historic LLLA: f and .ph type PHA with the
// nukta, and only zh types U+0CDE.
TEST(IndicKeymaps, KannadaFaIsPhaWithNukta) {
  for (const auto& folder : {ShippedKeymapFolder(), ShippedKeymapFolder() / "chCh-1"}) {
    KeymapTypist kannada(Lfk("Kannada"), folder);
    EXPECT_EQ(kannada.TypeUtf8("f .ph fa .phii fuu"), "ಫ಼್ ಫ಼್ ಫ಼ ಫ಼ೀ ಫ಼ೂ");
    EXPECT_EQ(kannada.TypeUtf8("zh zha"), "ೞ್ ೞ");
    for (size_t i = 1; i < kannada.tables->phoneticKeys.size(); ++i) {
      const auto& key = kannada.tables->phoneticKeys[i];
      if (kannada.tables->phoneticOutputs[i].find(u'\u0CDE') != std::u16string::npos) {
        EXPECT_EQ(key.rfind(u"zh", 0), 0u) << text::Utf16ToUtf8(key);
      }
    }
  }
}

// "chCh" = "1" selects the variants of the sub-folder, with the older spelling of the two.
TEST(IndicKeymaps, ChChVariantsSpellTheTwoConsonantsTheOlderWay) {
  for (const char* language : {"Hindi", "Bengali", "Telugu"}) {
    KeymapTypist current(Lfk(language));
    KeymapTypist older(Lfk(language), ShippedKeymapFolder() / "chCh-1");
    ASSERT_EQ(older.outcome, translit::LoadOutcome::Loaded) << language;
    EXPECT_EQ(older.Type(u"ca"), current.Type(u"ca")) << language;
    EXPECT_EQ(older.Type(u"cha"), current.Type(u"Cha")) << language;
    EXPECT_NE(older.Type(u"cha"), current.Type(u"cha")) << language;
    EXPECT_EQ(older.Type(u"namaste"), current.Type(u"namaste")) << language;  // nothing else moves
  }
}

// Characters of the scripts that no language here writes with: Vedic accents, letters of
// other languages (Sindhi, Kashmiri, Arabic transliteration), archaic and rare signs.
const std::map<std::string, std::set<int>>& NotTyped() {
  static const std::map<std::string, std::set<int>> table = [] {
    std::set<int> devanagari = {0x0900, 0x0904, 0x090E, 0x0912, 0x0946, 0x094A, 0x093A, 0x093B, 0x094E,
                                0x094F, 0x0951, 0x0952, 0x0953, 0x0954, 0x0955, 0x0956, 0x0957};
    for (int c = 0x0972; c <= 0x097F; ++c) devanagari.insert(c);
    return std::map<std::string, std::set<int>>{
        {"Hindi", devanagari},
        {"Sanskrit", devanagari},
        {"Marathi", devanagari},
        {"Konkani", devanagari},
        {"Gujarati", {0x0AF9, 0x0AFA, 0x0AFB, 0x0AFC, 0x0AFD, 0x0AFE, 0x0AFF}},
        {"Bengali", {0x0980, 0x09F0, 0x09F1, 0x09FC, 0x09FE}},
        {"Assamese", {0x0980, 0x09B0, 0x09FC, 0x09FE}},
        {"Punjabi", {0x0A51, 0x0A72, 0x0A73, 0x0A75}},
        {"Oriya", {0x0B55}},
        {"Telugu", {0x0C00, 0x0C04, 0x0C58, 0x0C59, 0x0C5A, 0x0C5D}},
        {"Kannada", {0x0C80, 0x0CDD, 0x0CF1, 0x0CF2}},
        {"Malayalam", {0x0D00, 0x0D04, 0x0D29, 0x0D3A, 0x0D3B, 0x0D3C, 0x0D4E, 0x0D5F}},
        {"Sourashtra", {}},
    };
  }();
  return table;
}

// The joining switch stays off (every syllable is an entry), but the ranges must still name
// the signs that join a letter and never the letters themselves.
TEST(IndicKeymaps, JoiningRangesHoldTheSignsNotTheLetters) {
  for (const auto& [language, skipped] : NotTyped()) {
    KeymapTypist typist(Lfk(language));
    ASSERT_EQ(typist.outcome, translit::LoadOutcome::Loaded) << language;
    const auto& joining = typist.tables->joining;
    EXPECT_FALSE(joining.joiningSwitch) << language;
    const auto dead = typist.Type(u"k"), longI = typist.Type(u"kii"), nasal = typist.Type(u"kaM");
    ASSERT_EQ(dead.size(), 2u) << language;
    EXPECT_FALSE(joining.Joins(dead[0])) << language;
    EXPECT_TRUE(joining.Joins(dead[1])) << language << ": virama";
    EXPECT_TRUE(joining.Joins(longI.back())) << language << ": vowel sign";
    EXPECT_TRUE(joining.Joins(nasal.back())) << language << ": anusvara";
    EXPECT_FALSE(joining.Joins(typist.Type(u"a")[0])) << language << ": vowel letter";
  }
}

struct ReachRow {
  std::u16string lfk;
  std::string script;  // the section of keymaps_script_letters.txt
  std::set<int> notTyped;
};

std::set<int> Range(int first, int last, std::set<int> more = {}) {
  for (int c = first; c <= last; ++c) more.insert(c);
  return more;
}

// Every scheme of a language reaches every letter of its script (of Greek and Arabic, the
// modern alphabet), except what it leaves out on purpose. Tamil's anusvara (U+0B82) writes no Tamil word; Tamil99 and
// the typewriters keep the Latin digits on the digit keys, and the machines had no ஶ, ௐ or signs.
std::vector<ReachRow> ReachRows() {
  std::vector<ReachRow> rows;
  for (const auto& [language, skipped] : NotTyped()) rows.push_back({Lfk(language), language, skipped});
  const auto typewriter = Range(0x0BE6, 0x0BFA, {0x0B82, 0x0BB6, 0x0BD0});
  rows.push_back({u"Tamil-Unicode-PhoneticTransliteration", "Tamil", {0x0B82}});
  rows.push_back({u"Tamil-Unicode-TamilNet99", "Tamil", Range(0x0BE6, 0x0BF2, {0x0B82})});
  rows.push_back({u"Tamil-Unicode-TypeWriterOld", "Tamil", typewriter});
  rows.push_back({u"Tamil-Unicode-TypeWriterNew", "Tamil", typewriter});
  rows.push_back({u"Tamil-Unicode-UserDefinedPhonetics1", "Tamil", Range(0x0BE6, 0x0BFA, {0x0B82, 0x0BD0})});
  rows.push_back({u"Greek-Unicode-PhoneticTransliteration", "Greek", {}});
  // Keheh variants and marks of other languages written in Arabic letters, and archaic forms.
  rows.push_back({u"Arabic-Unicode-PhoneticTransliteration", "Arabic",
                  Range(0x0653, 0x065F, {0x063B, 0x063C, 0x063D, 0x063E, 0x063F, 0x066E, 0x066F})});
  return rows;
}

// keymaps_script_letters.txt lists every letter and sign of each script, from the Unicode
// character database (scripts/keymaps/make_script_letters.py).
TEST(KeymapReach, EverySchemeReachesEveryLetterOfItsScript) {
  std::ifstream in(std::filesystem::path(QUILOM_SOURCE_DIR) / "tests/translit/keymaps_script_letters.txt");
  ASSERT_TRUE(in);
  std::map<std::string, std::vector<std::pair<int, std::string>>> letters;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    const auto tab1 = line.find('\t'), tab2 = line.find('\t', tab1 + 1);
    letters[line.substr(0, tab1)].emplace_back(std::stoi(line.substr(tab1 + 1, tab2 - tab1 - 1), nullptr, 16),
                                               line.substr(tab2 + 1));
  }
  for (const auto& row : ReachRows()) {
    const auto lfk = text::Utf16ToUtf8(row.lfk);
    ASSERT_FALSE(letters[row.script].empty()) << row.script;
    KeymapTypist typist(row.lfk);
    ASSERT_EQ(typist.outcome, translit::LoadOutcome::Loaded) << lfk;
    std::set<int> typed;
    for (size_t i = 1; i < typist.tables->phoneticKeys.size(); ++i) {
      for (const char16_t ch : typist.Type(typist.tables->phoneticKeys[i])) typed.insert(ch);
    }
    for (const auto& [code, name] : letters[row.script]) {
      if (!row.notTyped.count(code)) {
        EXPECT_TRUE(typed.count(code)) << lfk << " cannot type " << name;
      }
    }
  }
}

}  // namespace
}  // namespace quilom::testing
