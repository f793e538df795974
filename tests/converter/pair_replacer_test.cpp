#include "converter/pair_replacer.hpp"

#include <gtest/gtest.h>

#include <random>

#include "converter/plain_text_editor.hpp"
#include "text/utf.hpp"

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

// Units that share a signature bit ('a', U+00E1 and U+0B61 agree in their low seven bits), units
// that no find text holds (so they split words) and that replacements nonetheless insert,
// finds that are prefixes of one another, empty replacements, and over 64 pairs so that pair
// sets span several words.
TEST(PairReplacer, EqualsOneReplaceAllPerPairWhenReplacementsBringUnitsNoFindHolds) {
  std::mt19937 rng(7411);
  const std::u16string findUnits = u"ab\u00e1\u0b61c";
  const std::u16string textUnits = findUnits + u"x.\uffff ";
  for (int round = 0; round < 300; ++round) {
    std::vector<TablePair> pairs;
    const int count = 1 + static_cast<int>(rng() % (round % 3 == 0 ? 150 : 10));
    for (int i = 0; i < count; ++i) {
      std::u16string find = RandomText(rng, findUnits, 1 + rng() % 3);
      if (!pairs.empty() && rng() % 4 == 0) {
        find = pairs[rng() % pairs.size()].find + find.substr(0, 1);  // an earlier find, one longer
      }
      const std::u16string replacement = rng() % 5 == 0 ? u"" : RandomText(rng, textUnits, rng() % 4);
      pairs.push_back({find, replacement});
    }
    PairReplacer replacer(pairs);
    // Few words, many times over: the second and later sightings come from memory.
    std::vector<std::u16string> words;
    for (int i = 0; i < 6; ++i) words.push_back(RandomText(rng, findUnits, 1 + rng() % 6));
    for (int text = 0; text < 4; ++text) {
      std::u16string input;
      for (int i = 0; i < 40; ++i) {
        input += words[rng() % words.size()];
        input += RandomText(rng, textUnits, rng() % 2);
      }
      ASSERT_EQ(replacer.Apply(input), Naive(input, pairs)) << "round " << round;
    }
  }
}

// Words are cut inside where no match can ever span the cut. Each row holds a table whose
// later pairs bring two units together that earlier text kept apart (through a replacement's
// first or last unit, or by deleting what stood between them); cutting there would be wrong.
TEST(PairReplacer, CutsInsideWordsOnlyWhereNoLaterPairCanSpanThem) {
  struct Row {
    std::vector<TablePair> pairs;
    std::u16string input, expected;
  };
  const std::vector<Row> rows{
      // "b" opens no find text past its first place, but becomes "x", which "ax" needs.
      {{{u"b", u"x"}, {u"ax", u"!"}}, u"ab ab", u"! !"},
      // "a" ends no find text but becomes "y" on its left side.
      {{{u"a", u"y"}, {u"yb", u"!"}}, u"ab", u"!"},
      // Deleting "c" brings "a" and "b" together for a later pair.
      {{{u"c", u""}, {u"ab", u"!"}}, u"acb acb", u"! !"},
      // Both sides change in one pair.
      {{{u"a", u"p"}, {u"b", u"q"}, {u"pq", u"!"}}, u"ab", u"!"},
      // A replacement's middle never touches a cut: "a" and "b" stay apart.
      {{{u"ab", u"x"}, {u"a", u"1"}, {u"b", u"2"}}, u"ab ba", u"x 21"},
  };
  for (const Row& row : rows) {
    PairReplacer replacer(row.pairs);
    EXPECT_EQ(replacer.Apply(row.input), row.expected) << text::Utf16ToUtf8(row.input);
    EXPECT_EQ(replacer.Apply(row.input), Naive(row.input, row.pairs));
  }
}

// With more distinct units in find texts than the cut table holds, the replacer gives up on
// cuts inside words but must stay exact, also for words of one unit.
TEST(PairReplacer, EqualsOneReplaceAllPerPairWithThousandsOfUnitsInFindTexts) {
  std::mt19937 rng(515);
  std::u16string alphabet;
  for (char16_t unit = 0x4E00; unit < 0x4E00 + 1800; ++unit) alphabet.push_back(unit);
  std::vector<TablePair> pairs;
  for (int i = 0; i < 1500; ++i) {
    pairs.push_back({RandomText(rng, alphabet, 1 + rng() % 2), RandomText(rng, alphabet, rng() % 3)});
  }
  PairReplacer replacer(pairs);
  std::u16string input;
  for (int i = 0; i < 3000; ++i) {
    input += RandomText(rng, alphabet, 1 + rng() % 4);
    input += u' ';
  }
  EXPECT_EQ(replacer.Apply(input), Naive(input, pairs));
}

TEST(PairReplacer, StaysExactOnceTooManyDistinctWordsStopItRemembering) {
  std::mt19937 rng(99);
  const std::vector<TablePair> pairs{{u"ab", u"b"}, {u"b", u"ca"}, {u"cc", u""}, {u"a", u"c"}, {u"ca", u"a b"}};
  std::u16string input;
  for (int i = 0; i < 70000; ++i) {
    input += RandomText(rng, u"abc", 12 + rng() % 8);
    input += u' ';
  }
  PairReplacer replacer(pairs);
  EXPECT_EQ(replacer.Apply(input), Naive(input, pairs));
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
