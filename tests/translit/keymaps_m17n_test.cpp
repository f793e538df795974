// Our keymaps against m17n's input methods, an independent implementation of the same
// standards: the key lists and m17n's text for them are recorded in m17n/*.tsv (see
// m17n/make_golden.py). Where we differ on purpose, the rows are set aside by the rules below,
// each with its reason; everything else must agree character for character.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "keymaps_typist.hpp"

namespace quilom::testing {
namespace {

struct Difference {
  std::vector<std::string> files;  // empty: every ITRANS file
  std::string keys;                // a pattern of the keys that show it
  std::string reason;
};

const std::string kAutoPulliPairs = "(hh|bb|\\[\\[|\\]\\]|oo|pp|ll|;;|jj|kk|''|mm|nn|vv|//|yy|uu|ii|QQ|WW|EE|RR|TT|UU|bh|\\]\\[|;l|po|kj|iu)";
const std::vector<std::string> kDevanagari = {"itrans_hindi", "itrans_sanskrit", "itrans_marathi"};

const std::vector<Difference>& Differences() {
  static const std::vector<Difference> table = {
      {{"tamil99_random"}, kAutoPulliPairs + "a",
       "the standard's அ confirms the inherent a after any consonant, also after an automatic pulli; m17n has no "
       "such entry and types அ"},
      {{"tamil99_random"}, "TT[qswdegtrcxz]", "m17n's doubled க்ஷ entries drop the vowel sign"},
      {{"typewriter_old_words"}, ";f[pPbni;]",
       "m17n reads ; f as the start of its க்‌ஷ sequences and swallows the sign key that follows"},
      {{"typewriter_old_words"}, "A", "m17n uses A as the prefix of its symbol keys; on the machine A is யு"},
      {{}, "\\.N", "m17n reads '.' as the start of its dot commands and types .N as two keys in most methods"},
      {{}, "dn", "m17n waits for dny (ज्ञ) and types d and n untransliterated when it does not come"},
      {{}, "ksh|kSh", "we give क्ष for both spellings; m17n gives k + sh for ksh in most methods"},
      {{}, "yh|jn", "m17n's extra spellings of य़ and ज्ञ; ours are Y and GY, j~n or dny"},
      {{"itrans_bengali", "itrans_oriya"}, "v", "m17n has no v in these methods; ours types the script's va"},
      {{"itrans_punjabi"}, "ch", "m17n's Gurmukhi method types ਛ for ch; ITRANS gives ਚ"},
      {kDevanagari, "ee|oo|ea|oa", "m17n's short e/o and candra vowels; ITRANS gives two vowels"},
      {kDevanagari, "n[kgxcjTD]", "m17n turns n before a stop into the nasal of its class; we keep न"},
      {kDevanagari, "kH|pH|[bcdghjklmnprstvyDNTSx][MH]",
       "m17n drops the virama before M and H and has Vedic signs for kH, pH; ours types what the keys say"},
      {{"itrans_kannada"}, "nn|n[gDTkcj]", "m17n's Kannada method types the anusvara for n before a consonant"},
  };
  return table;
}

// m17n writes the nukta letters that Unicode keeps out of composition in their composed form;
// our keymaps write base + nukta, the normal form.
std::u16string Normalised(std::u16string text) {
  static const std::vector<std::pair<char16_t, std::u16string>> decompositions = {
      {0x0958, u"\u0915\u093C"}, {0x0959, u"\u0916\u093C"}, {0x095A, u"\u0917\u093C"}, {0x095B, u"\u091C\u093C"},
      {0x095C, u"\u0921\u093C"}, {0x095D, u"\u0922\u093C"}, {0x095E, u"\u092B\u093C"}, {0x095F, u"\u092F\u093C"},
      {0x09DC, u"\u09A1\u09BC"}, {0x09DD, u"\u09A2\u09BC"}, {0x09DF, u"\u09AF\u09BC"}, {0x0A33, u"\u0A32\u0A3C"},
      {0x0A36, u"\u0A38\u0A3C"}, {0x0A59, u"\u0A16\u0A3C"}, {0x0A5A, u"\u0A17\u0A3C"}, {0x0A5B, u"\u0A1C\u0A3C"},
      {0x0A5E, u"\u0A2B\u0A3C"}, {0x0B5C, u"\u0B21\u0B3C"}, {0x0B5D, u"\u0B22\u0B3C"}};
  std::u16string out;
  for (const char16_t ch : text) {
    auto it = std::find_if(decompositions.begin(), decompositions.end(), [ch](const auto& d) { return d.first == ch; });
    out += it == decompositions.end() ? std::u16string(1, ch) : it->second;
  }
  // m17n spells the syllable of the Y key with ஶ (U+0BB6); the standard and everyday text use ஸ.
  const std::u16string sriM17n = u"\u0BB6\u0BCD\u0BB0\u0BC0";
  for (size_t at; (at = out.find(sriM17n)) != std::u16string::npos;) out.replace(at, sriM17n.size(), u"ஸ்ரீ");
  return out;
}

bool SetAside(const std::string& file, const std::string& keys) {
  const bool itrans = file.rfind("itrans_", 0) == 0;
  for (const auto& rule : Differences()) {
    const bool applies = rule.files.empty() ? itrans : std::find(rule.files.begin(), rule.files.end(), file) != rule.files.end();
    if (applies && std::regex_search(keys, std::regex(rule.keys))) return true;
  }
  return false;
}

struct Golden {
  std::string file;    // the .tsv file's name without extension
  std::u16string lfk;  // the keymap it tests
  char16_t virama;     // a consonant left at the end keeps it here; m17n drops it when typing ends
};

void PrintTo(const Golden& golden, std::ostream* os) { *os << golden.file; }

class KeymapsAgainstM17n : public ::testing::TestWithParam<Golden> {};

TEST_P(KeymapsAgainstM17n, TypeWhatM17nTypesExceptForTheDocumentedDifferences) {
  const auto& golden = GetParam();
  KeymapTypist typist(golden.lfk);
  ASSERT_EQ(typist.outcome, translit::LoadOutcome::Loaded);
  std::ifstream in(std::filesystem::path(QUILOM_SOURCE_DIR) / "tests/translit/m17n" / (golden.file + ".tsv"));
  ASSERT_TRUE(in) << golden.file;
  int rows = 0, setAside = 0, differing = 0;
  std::string shown;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    const auto tab = line.find('\t');
    ASSERT_NE(tab, std::string::npos) << line;
    const std::string keys = line.substr(0, tab);
    ++rows;
    if (SetAside(golden.file, keys)) {
      ++setAside;
      continue;
    }
    const auto expected = Normalised(text::Utf8ToUtf16(line.substr(tab + 1)));
    const auto ours = typist.Type(text::Utf8ToUtf16(keys));
    if (ours == expected || (golden.virama && ours == expected + golden.virama)) continue;
    if (++differing <= 10) shown += keys + ": m17n " + text::Utf16ToUtf8(expected) + ", ours " + text::Utf16ToUtf8(ours) + "\n";
  }
  EXPECT_GE(rows, 1000);
  EXPECT_EQ(differing, 0) << shown;
  // The rules must stay narrow: most rows are compared.
  EXPECT_LT(setAside * 5, rows) << setAside << " of " << rows << " rows set aside";
}

INSTANTIATE_TEST_SUITE_P(
    Schemes, KeymapsAgainstM17n,
    ::testing::Values(Golden{"tamil99_words", u"Tamil-Unicode-TamilNet99", 0},
                      Golden{"tamil99_random", u"Tamil-Unicode-TamilNet99", 0},
                      Golden{"typewriter_old_words", u"Tamil-Unicode-TypeWriterOld", 0},
                      Golden{"itrans_hindi", u"Hindi-Unicode-PhoneticTransliteration", 0x094D},
                      Golden{"itrans_sanskrit", u"Sanskrit-Unicode-PhoneticTransliteration", 0x094D},
                      Golden{"itrans_marathi", u"Marathi-Unicode-PhoneticTransliteration", 0x094D},
                      Golden{"itrans_gujarati", u"Gujarati-Unicode-PhoneticTransliteration", 0},
                      Golden{"itrans_bengali", u"Bengali-Unicode-PhoneticTransliteration", 0},
                      Golden{"itrans_assamese", u"Assamese-Unicode-PhoneticTransliteration", 0},
                      Golden{"itrans_punjabi", u"Punjabi-Unicode-PhoneticTransliteration", 0},
                      Golden{"itrans_oriya", u"Oriya-Unicode-PhoneticTransliteration", 0},
                      Golden{"itrans_telugu", u"Telugu-Unicode-PhoneticTransliteration", 0},
                      Golden{"itrans_kannada", u"Kannada-Unicode-PhoneticTransliteration", 0},
                      Golden{"itrans_malayalam", u"Malayalam-Unicode-PhoneticTransliteration", 0}),
    [](const auto& info) { return info.param.file; });

}  // namespace
}  // namespace quilom::testing
