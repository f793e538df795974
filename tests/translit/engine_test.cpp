#include "translit/engine.hpp"

#include <gtest/gtest.h>

#include "translit/recording_output_sink.hpp"

namespace quilom::translit {
namespace {

using testing::MakeKeymap;
using testing::RecordingOutputSink;
using testing::TypeKeys;

TEST(CommonPrefixDifference, KeepsTheUnchangedBeginning) {
  struct Row {
    std::u16string previous, next;
    Edit expected;
  };
  const Row rows[] = {
      {u"க", u"கா", {0, u"ா"}}, {u"க்", u"க", {1, u""}},       {u"abc", u"abd", {1, u"d"}}, {u"", u"xy", {0, u"xy"}},
      {u"xyz", u"", {3, u""}},  {u"same", u"same", {0, u""}}, {u"ன்ட்", u"ந்த்", {4, u"ந்த்"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(CommonPrefixDifference(row.previous, row.next), row.expected)
        << text::Utf16ToUtf8(row.previous) << " -> " << text::Utf16ToUtf8(row.next);
  }
}

class EngineTest : public ::testing::Test {
 protected:
  RecordingOutputSink sink;
  Engine engine{sink};

  void Use(const std::vector<std::pair<std::u16string, std::u16string>>& entries, int mode = 0,
           std::u16string_view extraLine = {}) {
    auto map = MakeKeymap(entries, mode, extraLine);
    ASSERT_NE(map, nullptr);
    engine.SetKeymap(map);
    engine.SetSettings({mode, 0});
  }
  // What the engine believes it typed must be what its edits produce on a screen.
  void ExpectShown(std::u16string_view expected) {
    EXPECT_EQ(engine.CurrentOutput(), expected);
    EXPECT_EQ(sink.screen, expected);
  }
};

// Each key sends one edit that keeps the unchanged beginning of what is shown.
TEST_F(EngineTest, EachKeySendsOnlyTheChange) {
  const std::vector<std::pair<std::u16string, std::u16string>> entries = {{u"k", u"க்"}, {u"ka", u"க"}, {u"kaa", u"கா"},
                                                                          {u"s", u"ச்"}, {u"sh", u"ஷ்"}, {u"ksh", u"க்ஷ்"},
                                                                          {u"g", u"க"}, {u"ge", u"கா"}};
  struct Row {
    std::u16string keys;
    std::vector<Edit> edits;
    std::u16string shown;
  };
  const Row rows[] = {
      {u"ge", {{0, u"க"}, {0, u"ா"}}, u"கா"},              // a vowel after a consonant: the sign only
      {u"kaa", {{0, u"க்"}, {1, u""}, {0, u"ா"}}, u"கா"},   // a longer match takes back what changed
      {u"ksh", {{0, u"க்"}, {0, u"ச்"}, {2, u"ஷ்"}}, u"க்ஷ்"},  // "ks" only begins "ksh": s stands alone until h
  };
  for (const auto& row : rows) {
    Use(entries);
    sink.edits.clear();
    sink.screen.clear();
    TypeKeys(engine, row.keys);
    EXPECT_EQ(sink.edits, row.edits) << text::Utf16ToUtf8(row.keys);
    ExpectShown(row.shown);
  }
  EXPECT_EQ(engine.LastMatchPosition(), 1);
}

TEST_F(EngineTest, KeyThatContinuesNoEntryRestartsTheBuffer) {
  Use({{u"x", u"X"}, {u"a", u"A"}, {u"c", u"C"}, {u"xazc", u"!"}});
  TypeKeys(engine, u"xaz");
  // The z continues no key that starts where "a" matched: the buffer holds only the z now.
  EXPECT_EQ(engine.TypedKeys(), u"z");
  EXPECT_EQ(engine.LastMatchPosition(), 0);
  engine.ProcessKey(u'c');
  // "xazc" would match the whole typed run, but the restart point is never crossed.
  ExpectShown(u"XAzC");
  EXPECT_EQ(engine.TypedKeys(), u"zc");
}

// A key no entry begins, or a character with no index row, is typed as itself and kept.
TEST_F(EngineTest, UnknownKeysStandForThemselvesAndStayInTheBuffer) {
  Use({{u"k", u"க்"}, {u"é", u"E"}});
  TypeKeys(engine, u"1");
  EXPECT_EQ(sink.edits, (std::vector<Edit>{{0, u"1"}}));
  engine.ProcessKey(u'k');
  EXPECT_EQ(engine.TypedKeys(), u"1k");
  TypeKeys(engine, u"éகk");
  ExpectShown(u"1க்éகக்");
}

TEST_F(EngineTest, HistoryGrowsByFiftyWhenTheBufferReachesFifty) {
  Use({{u"k", u"க்"}});
  const std::u16string fortyNine(49, u'1');
  TypeKeys(engine, fortyNine);
  EXPECT_EQ(engine.HistoryPositions(), 50);
  engine.ProcessKey(u'1');
  EXPECT_EQ(engine.TypedLength(), 50);
  EXPECT_EQ(engine.HistoryPositions(), 100);
  engine.ProcessKey(u'k');
  EXPECT_EQ(engine.OutputHistory(51), fortyNine + u"1க்");
  EXPECT_EQ(engine.OutputHistory(20), std::u16string(20, u'1'));
  engine.Reset();
  EXPECT_EQ(engine.HistoryPositions(), 50);
  EXPECT_EQ(engine.TypedLength(), 0);
  EXPECT_EQ(engine.CurrentOutput(), u"");
}

TEST_F(EngineTest, VeryLongBufferRestartsWithoutLosingText) {
  Use({{u"k", u"க்"}});
  const std::u16string digits(Engine::kMaxTypedKeys + 3, u'7');
  TypeKeys(engine, digits);
  EXPECT_EQ(engine.TypedLength(), 3);
  ExpectShown(digits);
}

TEST_F(EngineTest, NewKeymapStartsFromAnEmptyBuffer) {
  Use({{u"k", u"க்"}});
  engine.ProcessKey(u'k');
  engine.SetKeymap(MakeKeymap({{u"k", u"K"}}));
  EXPECT_EQ(engine.TypedLength(), 0);
  EXPECT_EQ(engine.CurrentOutput(), u"");
  engine.ProcessKey(u'k');
  EXPECT_EQ(engine.CurrentOutput(), u"K");
}

TEST_F(EngineTest, DropAllModeSendsNothingButKeepsTheRecord) {
  Use({{u"k", u"க்"}, {u"ka", u"க"}});
  sink.SetOutputSuppressed(OutputSink::kDropAll);
  TypeKeys(engine, u"ka");
  EXPECT_TRUE(sink.edits.empty());
  EXPECT_EQ(engine.CurrentOutput(), u"க");
}

// The punctuation rule and the joining text belong to typing mode 1 only.
constexpr std::u16string_view kJoinWithZwnj = u"<joining>0 200C 0B82-0B83 0BBE-0BCD</joining>";
constexpr std::u16string_view kJoinOnWithZwj = u"<joining>1 200D 0B82-0B83 0BBE-0BCD</joining>";

TEST_F(EngineTest, PunctuationPairSendsTheJoiningTextFirstOnlyInModeOneWithItsSwitch) {
  struct Row {
    int mode, punctuationSwitch;
    std::vector<Edit> edits;
  };
  const Row rows[] = {
      {1, 1, {{0, u"."}, {1, u"\u200C."}, {2, u"P"}}},
      {1, 0, {{0, u"."}, {1, u"P"}}},
      {0, 1, {{0, u"."}, {1, u"P"}}},
  };
  for (const auto& row : rows) {
    sink.edits.clear();
    sink.screen.clear();
    Use({{u".a", u"P"}, {u"a", u"A"}}, row.mode, kJoinWithZwnj);
    engine.SetSettings({row.mode, row.punctuationSwitch});
    TypeKeys(engine, u".a");
    EXPECT_EQ(sink.edits, row.edits) << row.mode << row.punctuationSwitch;
    ExpectShown(u"P");
  }
}

TEST_F(EngineTest, JoiningSignGetsTheJoiningTextAsItsOwnEdit) {
  Use({{u"k", u"K"}, {u"i", u"ி"}, {u"kiz", u"Z"}}, 1, kJoinOnWithZwj);
  TypeKeys(engine, u"ki");
  EXPECT_EQ(sink.edits, (std::vector<Edit>{{0, u"K"}, {0, u"\u200D"}, {0, u"ி"}}));
  ExpectShown(u"K\u200Dி");
}

TEST_F(EngineTest, NonJoiningOutputReplacesTheLastCharacterBeforeIt) {
  Use({{u"k", u"K"}, {u"q", u"Q"}, {u"kqz", u"Z"}}, 1, kJoinOnWithZwj);
  TypeKeys(engine, u"kq");
  EXPECT_EQ(sink.edits.back(), (Edit{1, u"Q"}));
  ExpectShown(u"Q");
  // With the joining switch off the same keys keep both letters.
  sink.screen.clear();
  Use({{u"k", u"K"}, {u"q", u"Q"}, {u"kqz", u"Z"}}, 1, kJoinWithZwnj);
  TypeKeys(engine, u"kq");
  ExpectShown(u"KQ");
}

}  // namespace
}  // namespace quilom::translit
