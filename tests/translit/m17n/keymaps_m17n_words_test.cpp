// Every ITRANS keymap against m17n's input method for its language, over real words: words of
// Debian's aspell dictionaries are spelt as keys by walking the keymap backwards, typed through
// the real engine and through libm17n, and every word where the two differ must differ in a
// way the keymap notes list, with its reason. A listed difference that no word shows any more
// fails as well, and so do the notes' figures when they change, so the notes stay true.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <random>

#include "dictionary_words.hpp"
#include "itrans_differences.hpp"
#include "keymap_speller.hpp"
#include "keymaps_typist.hpp"
#include "m17n_input_method.hpp"

namespace quilom::testing {
namespace {

struct Method {
  std::string language;    // of the keymap
  std::string m17n;        // m17n's language of its itrans method
  std::string dictionary;  // the aspell dictionary whose words are typed
};

void PrintTo(const Method& method, std::ostream* os) { *os << method.language; }

constexpr size_t kWordsPerLanguage = 2500;

std::filesystem::path NotesPath() { return ShippedKeymapFolder() / "ITRANS keymap notes.txt"; }

const std::map<std::string, LanguageDifferences>& Notes() {
  static const auto notes = [] {
    std::vector<std::string> problems;
    return ReadListedDifferences(NotesPath(), problems);
  }();
  return notes;
}

// The dictionary's words in an order of the language's own, without the entries that begin
// with a sign (aspell lists lone signs and suffixes).
std::vector<std::u16string> ShuffledWords(const Method& method, const translit::PhoneticKeymap& keymap) {
  std::vector<std::u16string> words = AspellWords(method.dictionary);
  std::erase_if(words, [&](const std::u16string& w) { return keymap.joining.Joins(w[0]); });
  std::uint32_t seed = 0;
  for (const char c : method.language) seed = seed * 31 + static_cast<unsigned char>(c);
  std::mt19937 random(seed);
  for (size_t i = words.size(); i > 1; --i) std::swap(words[i - 1], words[random() % i]);
  return words;
}

struct Tally {
  size_t compared = 0, typedBack = 0, differing = 0;
  std::vector<size_t> shownBy;  // per listed row, the words it explains
  std::vector<std::string> unexplained;
};

class KeymapAgainstM17n : public ::testing::TestWithParam<Method> {
 protected:
  // sa-itrans includes hi-itrans' maps, and libm17n reads them for sa-itrans' own states only
  // when sa-itrans is the first of the two to be opened; opened after hi-itrans, it types the
  // inherent a after a consonant as a Latin "a". So whatever runs first, sa-itrans opens first.
  static void SetUpTestSuite() { M17nInputMethod::Open("sa", "itrans"); }

  void SetUp() override {
    const Method& method = GetParam();
    ours_ = std::make_unique<KeymapTypist>(text::Utf8ToUtf16(method.language) + u"-Unicode-PhoneticTransliteration");
    ASSERT_EQ(ours_->outcome, translit::LoadOutcome::Loaded);
    m17n_ = M17nInputMethod::Open(method.m17n, "itrans");
    ASSERT_TRUE(m17n_) << method.m17n << "-itrans";
    ASSERT_TRUE(Notes().count(method.language)) << "no section [" << method.language << "] in " << NotesPath();
    listed_ = &Notes().at(method.language);
  }

  M17nTyping M17n() const {
    return [this](std::string_view keys) { return m17n_->TypeUtf8(keys); };
  }

  Tally Compare() {
    Tally tally;
    tally.shownBy.assign(listed_->rows.size(), 0);
    KeymapSpeller speller(
        *ours_->tables, [&](std::u16string_view keys) { return ours_->Type(keys); }, 2026);
    for (const auto& word : ShuffledWords(GetParam(), *ours_->tables)) {
      if (tally.compared == kWordsPerLanguage) break;
      const auto keys = speller.Keys(word);
      if (!keys) continue;
      ++tally.compared;
      const auto typed = ours_->Type(*keys);
      tally.typedBack += typed == word;
      const std::string keys8 = text::Utf16ToUtf8(*keys), ours8 = text::Utf16ToUtf8(typed);
      const std::string theirs = m17n_->TypeUtf8(keys8);
      if (ours8 == theirs) continue;
      ++tally.differing;
      if (const auto rows = Explain(listed_->rows, keys8, ours8, M17n())) {
        for (const size_t row : *rows) ++tally.shownBy[row];
      } else {
        tally.unexplained.push_back(keys8 + "\t" + ours8 + "\t" + theirs + "\t" + text::Utf16ToUtf8(word));
      }
    }
    return tally;
  }

  std::unique_ptr<KeymapTypist> ours_;
  const M17nInputMethod* m17n_ = nullptr;
  const LanguageDifferences* listed_ = nullptr;
};

TEST_P(KeymapAgainstM17n, DiffersOnlyWhereTheNotesSay) {
  const Method& method = GetParam();
  EXPECT_EQ(listed_->method, method.m17n + "-itrans");
  const Tally tally = Compare();
  std::cout << method.language << " against " << listed_->method << ": " << tally.compared << " words of aspell-"
            << method.dictionary << ", " << tally.typedBack << " typed back by ours, " << tally.differing << " differ, "
            << tally.unexplained.size() << " not listed\n";
  std::string shown;
  for (size_t i = 0; i < tally.unexplained.size() && i < 40; ++i) shown += tally.unexplained[i] + "\n";
  EXPECT_TRUE(tally.unexplained.empty()) << tally.unexplained.size() << " words differ in a way the notes do not "
                                         << "list (keys, ours, m17n, the word):\n"
                                         << shown;
  for (size_t i = 0; i < listed_->rows.size(); ++i) {
    EXPECT_GT(tally.shownBy[i], 0u) << "no word shows the difference of notes line " << listed_->rows[i].line << " ("
                                    << listed_->rows[i].keys << ") any more";
  }
  EXPECT_GE(tally.compared, 1000u);
  EXPECT_EQ(tally.compared, listed_->words) << "the notes' figure of words compared";
  EXPECT_EQ(tally.differing, listed_->differing) << "the notes' figure of words that differ";
  // Most words are spelt so that our keymap types them back.
  EXPECT_GT(tally.typedBack * 100, tally.compared * 98) << tally.typedBack << " of " << tally.compared;
}

// Each row's example types as the row says, through both, and its rule accounts for it.
TEST_P(KeymapAgainstM17n, ListedExamplesTypeAsListed) {
  for (const auto& row : listed_->rows) {
    const std::string where = "notes line " + std::to_string(row.line) + " (" + row.keys + ")";
    EXPECT_EQ(ours_->TypeUtf8(row.keys), row.ours) << where;
    EXPECT_EQ(m17n_->TypeUtf8(row.keys), row.m17n) << where;
    EXPECT_NE(row.ours, row.m17n) << where;
    EXPECT_TRUE(Explain({row}, row.keys, row.ours, M17n())) << where << ": its rule does not account for it";
  }
}

INSTANTIATE_TEST_SUITE_P(Itrans, KeymapAgainstM17n,
                         ::testing::Values(Method{"Hindi", "hi", "hi"}, Method{"Sanskrit", "sa", "hi"},
                                           Method{"Marathi", "mr", "mr"}, Method{"Konkani", "mr", "mr"},
                                           Method{"Gujarati", "gu", "gu"}, Method{"Bengali", "bn", "bn"},
                                           Method{"Assamese", "as", "bn"}, Method{"Punjabi", "pa", "pa"},
                                           Method{"Oriya", "or", "or"}, Method{"Telugu", "te", "te"},
                                           Method{"Kannada", "kn", "kn"}, Method{"Malayalam", "ml", "ml"}),
                         [](const auto& info) { return info.param.language; });

TEST(KeymapNotes, ListOnlyRowsThatParseAndOnlyTestedLanguages) {
  std::vector<std::string> problems;
  const auto notes = ReadListedDifferences(NotesPath(), problems);
  EXPECT_TRUE(problems.empty()) << problems.front();
  EXPECT_EQ(notes.size(), 12u);
}

}  // namespace
}  // namespace quilom::testing
