// The machinery of the m17n comparison: the reverse walk that spells words as keys, and the
// reading and matching of the differences the keymap notes list.
#include "itrans_differences.hpp"

#include <gtest/gtest.h>

#include <map>

#include "keymap_speller.hpp"
#include "keymaps_typist.hpp"

namespace quilom::testing {
namespace {

TEST(KeymapSpeller, SpellsWordsSoThatTheKeymapTypesThemBack) {
  KeymapTypist hindi(u"Hindi-Unicode-PhoneticTransliteration");
  KeymapSpeller speller(
      *hindi.tables, [&](std::u16string_view keys) { return hindi.Type(keys); }, 7);
  // कई: "ka" + "ii" would run together into "kai" (कै); the speller takes I instead.
  for (const std::u16string word : {u"कई", u"क्षमा", u"फ़िल्म", u"संस्कृत", u"आई", u"राम्"}) {
    for (int round = 0; round < 5; ++round) {
      const auto keys = speller.Keys(word);
      ASSERT_TRUE(keys) << text::Utf16ToUtf8(word);
      EXPECT_EQ(hindi.Type(*keys), word) << text::Utf16ToUtf8(*keys);
    }
  }
  EXPECT_FALSE(speller.Keys(u"தமிழ்"));  // no entry gives these letters
}

TEST(KeymapSpeller, TypesHalantOnlyAtTheEndOfAWord) {
  KeymapTypist hindi(u"Hindi-Unicode-PhoneticTransliteration");
  KeymapSpeller speller(
      *hindi.tables, [&](std::u16string_view keys) { return hindi.Type(keys); }, 11);
  int halantAtEnd = 0;
  for (int round = 0; round < 40; ++round) {
    const auto keys = speller.Keys(u"सत्यम्");
    ASSERT_TRUE(keys);
    const size_t halant = keys->find(u".h");
    EXPECT_TRUE(halant == std::u16string::npos || halant + 2 == keys->size()) << text::Utf16ToUtf8(*keys);
    halantAtEnd += keys->ends_with(u".h");
  }
  EXPECT_GT(halantAtEnd, 0);  // the other spelling of the last piece is typed too
}

ListedDifference Rule(ListedDifference::Kind kind, const std::string& from, const std::string& to = "") {
  ListedDifference row;
  row.kind = kind;
  row.from = from;
  row.to = to;
  if (kind != ListedDifference::Kind::Text) row.keysPattern = std::regex(from);
  return row;
}

TEST(ListedDifferences, AccountForAWordByTheFewestRowsThatMakeTheTextsAgree) {
  using Kind = ListedDifference::Kind;
  const std::vector<ListedDifference> rows = {Rule(Kind::Keys, "B", "bh"), Rule(Kind::Text, "X", "Y"),
                                              Rule(Kind::None, "q"), Rule(Kind::Text, "$", "!")};
  const std::map<std::string, std::string> m17n = {
      {"Ba", "Ba?"}, {"bha", "bha"}, {"aX", "aX"}, {"bhX", "bhX"}, {"z", "z"}};
  const M17nTyping type = [&](std::string_view keys) {
    const auto it = m17n.find(std::string(keys));
    return it == m17n.end() ? std::string("?") : it->second;
  };
  EXPECT_EQ(Explain(rows, "Ba", "bha", type), (std::vector<size_t>{0}));
  EXPECT_EQ(Explain(rows, "aX", "aY", type), (std::vector<size_t>{1}));
  EXPECT_EQ(Explain(rows, "qa", "anything", type), (std::vector<size_t>{2}));
  EXPECT_EQ(Explain(rows, "z", "z!", type), (std::vector<size_t>{3}));
  EXPECT_EQ(Explain(rows, "BX", "bhY!", type), (std::vector<size_t>{0, 1, 3}));
  EXPECT_FALSE(Explain(rows, "z", "w", type));
  EXPECT_FALSE(Explain(rows, "aX", "aZ", type));  // a text rule must make the texts agree
}

TEST(ListedDifferences, ReadTheSectionsFiguresAndRowsAndReportRowsThatDoNotParse) {
  TempFolder folder;
  WriteBytes(folder / "notes.txt",
             "Title\r\n"
             "[Hindi] hi-itrans: 2500 words of aspell-hi, 127 differ\r\n"
             "prose without tabs\r\n"
             "Ba\t\xE0\xA4\xAD\tB\tkeys B > bh\tm17n has no B\r\n"
             "as\tx\ty\ttext $ > z\tend\r\n"
             "qa\tx\ty\tnone q\tno key\r\n"
             "bad\tx\ty\tkeys B bh\twhy\r\n"
             "[Bengali] bn-itrans: 1000 words of aspell-bn, 3 differ\r\n");
  std::vector<std::string> problems;
  const auto notes = ReadListedDifferences(folder / "notes.txt", problems);
  ASSERT_EQ(notes.size(), 2u);
  const auto& hindi = notes.at("Hindi");
  EXPECT_EQ(hindi.method, "hi-itrans");
  EXPECT_EQ(hindi.words, 2500u);
  EXPECT_EQ(hindi.differing, 127u);
  ASSERT_EQ(hindi.rows.size(), 3u);
  EXPECT_EQ(hindi.rows[0].kind, ListedDifference::Kind::Keys);
  EXPECT_EQ(hindi.rows[0].ours, "\xE0\xA4\xAD");
  EXPECT_EQ(hindi.rows[0].line, 4);
  EXPECT_EQ(hindi.rows[1].kind, ListedDifference::Kind::Text);
  EXPECT_EQ(hindi.rows[1].from, "$");
  EXPECT_EQ(hindi.rows[2].kind, ListedDifference::Kind::None);
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(problems[0].rfind("line 7", 0), 0u) << problems[0];
  EXPECT_EQ(notes.at("Bengali").differing, 3u);
}

}  // namespace
}  // namespace quilom::testing
