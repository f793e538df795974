#include "converter/pair_replacer.hpp"

#include <gtest/gtest.h>

#include <random>

#include "converter/plain_text_editor.hpp"

namespace quilom::converter {
namespace {

// The meaning the fast replacer must keep: one plain replace-all per pair, in order.
std::u16string Naive(std::u16string text, const std::vector<TablePair>& pairs) {
  for (const TablePair& pair : pairs) {
    if (pair.find.empty()) continue;
    std::u16string out;
    std::size_t start = 0;
    for (std::size_t at = text.find(pair.find); at != std::u16string::npos; at = text.find(pair.find, start)) {
      out.append(text, start, at - start);
      out += pair.replacement;
      start = at + pair.find.size();
    }
    out.append(text, start);
    text = out;
  }
  return text;
}

std::u16string RandomText(std::mt19937& rng, std::u16string_view alphabet, std::size_t length) {
  std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
  std::u16string text;
  for (std::size_t i = 0; i < length; ++i) text.push_back(alphabet[pick(rng)]);
  return text;
}

TEST(PairReplacer, EqualsOneReplaceAllPerPairOnRandomTablesAndTexts) {
  std::mt19937 rng(20261122);
  // Blanks and line ends inside find texts and replacements too, so that the word splitting is
  // put to the test along with everything else.
  const std::u16string alphabet = u"abcde \r\n";
  for (int round = 0; round < 400; ++round) {
    std::vector<TablePair> pairs;
    const int count = 1 + static_cast<int>(rng() % 12);
    for (int i = 0; i < count; ++i) {
      const bool plainFind = rng() % 3 != 0;
      pairs.push_back(
          {RandomText(rng, plainFind ? u"abcde" : alphabet, 1 + rng() % 3), RandomText(rng, alphabet, rng() % 4)});
    }
    PairReplacer replacer(pairs);
    for (int text = 0; text < 5; ++text) {
      const std::u16string input = RandomText(rng, alphabet, rng() % 60);
      ASSERT_EQ(replacer.Apply(input), Naive(input, pairs)) << "round " << round;
    }
  }
}

TEST(PairReplacer, NeverSearchesWhatThePairItselfInsertedButLaterPairsDo) {
  PairReplacer replacer(std::vector<TablePair>{{u"a", u"aa"}, {u"aa", u"b"}});
  EXPECT_EQ(replacer.Apply(u"a a"), u"b b");
  PairReplacer overlapping(std::vector<TablePair>{{u"aa", u"x"}});
  EXPECT_EQ(overlapping.Apply(u"aaa"), u"xa");
}

TEST(PairReplacer, RemembersWordsWithoutMixingThemUp) {
  PairReplacer replacer(std::vector<TablePair>{{u"k", u"K"}, {u"Ka", u"!"}});
  EXPECT_EQ(replacer.Apply(u"ka kb ka"), u"! Kb !");
  EXPECT_EQ(replacer.Apply(u"kb ka"), u"Kb !");
}

TEST(PairReplacer, ReportsProgressUpToOneHundred) {
  PairReplacer replacer(std::vector<TablePair>{{u"a", u"b"}});
  std::vector<int> seen;
  replacer.Apply(std::u16string(300000, u'a') + u" a", [&seen](int p) { seen.push_back(p); });
  ASSERT_FALSE(seen.empty());
  EXPECT_EQ(seen.back(), 100);
  EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
}

TEST(PlainTextEditor, SelectionScopeConvertsOnlyTheSelectionAndFollowsItsLength) {
  PlainTextEditor editor(u"aa|aa|aa", 3, 5);
  ASSERT_TRUE(editor.HasSelection());
  editor.SetScope(EditScope::Selection);
  editor.ReplaceAll(u"a", u"bbb");
  EXPECT_EQ(editor.Text(), u"aa|bbbbbb|aa");
  // The selection now spans the six converted characters.
  editor.ReplaceAll(u"bb", u"c");
  EXPECT_EQ(editor.Text(), u"aa|ccc|aa");
}

TEST(PlainTextEditor, CaretsAreFoundLiterally) {
  PlainTextEditor editor(u"x^p^^");
  editor.ReplaceAll(u"^", u"+");
  EXPECT_EQ(editor.Text(), u"x+p++");
  EXPECT_FALSE(PlainTextEditor(u"abc", 2, 2).HasSelection());
}

}  // namespace
}  // namespace quilom::converter
