#include "translit/keymap_file.hpp"

#include <gtest/gtest.h>

#include "settings/text_file.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"

namespace quilom::translit {
namespace {

PhoneticKeymap Parse(std::u16string_view text, int mode = 0, char16_t modifier = 0) {
  DataFileProblem problem;
  auto map = ParsePhoneticKeymap(text, {mode, modifier}, *settings::Windows1252(), problem);
  EXPECT_TRUE(map.has_value()) << text::Utf16ToUtf8(problem.reason);
  return map ? std::move(*map) : PhoneticKeymap{};
}

// The output stored for `key`, or "?" when the key is not loaded.
std::u16string OutputOf(const PhoneticKeymap& map, std::u16string_view key) {
  for (int i = 1; i <= map.EntryCount(); ++i) {
    if (map.phoneticKeys[i] == key) return map.phoneticOutputs[i];
  }
  return u"?";
}

TEST(KeymapParse, SplitsEachMarkedLineIntoKeyAndOutput) {
  struct Row {
    std::u16string_view marked, key, output;
  };
  const Row rows[] = {
      {u"k க", u"k", u"க"},           {u"xyz a b", u"xyz", u"a b"},
      {u"two a  b", u"two", u"a  b"}, {u"lf அ|`~`|ஆ", u"lf", u"அ\nஆ"},
      {u" blank", u"", u"blank"},
  };
  for (const auto& row : rows) {
    const auto map = Parse(u"title\r\nbefore <om>" + std::u16string(row.marked) + u"</om> after\r\n");
    ASSERT_EQ(map.EntryCount(), 1) << text::Utf16ToUtf8(row.marked);
    EXPECT_EQ(map.phoneticKeys[1], row.key);
    EXPECT_EQ(map.phoneticOutputs[1], row.output);
    EXPECT_EQ(map.phoneticKeys[0], u" ");
    EXPECT_EQ(map.phoneticOutputs[0], u" ");
  }
}

TEST(KeymapParse, SkipsTheTitleLineAndLinesWithoutBothMarkers) {
  const auto map = Parse(u"<om>t T</om>\r\n<om>a A\r\nb B</om>\r\ncomment\r\n<om>c C</om>");
  ASSERT_EQ(map.EntryCount(), 1);
  EXPECT_EQ(map.phoneticKeys[1], u"c");
}

TEST(KeymapParse, SortsByCodeUnitsAndKeepsRawKeysInFileOrder) {
  const auto map = Parse(u"t\r\n<om>n ன்</om>\r\n<om>N ண்</om>\r\n<om>na ன</om>\r\n<om>a அ</om>\r\n<om>n first-dup</om>");
  EXPECT_EQ(map.phoneticKeys, (std::vector<std::u16string>{u" ", u"N", u"a", u"n", u"n", u"na"}));
  // Equal keys keep their file order, so the first of them is the one the engine finds.
  EXPECT_EQ(map.phoneticOutputs[3], u"ன்");
  EXPECT_EQ(OutputOf(map, u"N"), u"ண்");
  EXPECT_EQ(map.phoneticKeysRaw, (std::vector<std::u16string>{u" ", u"n", u"N", u"na", u"a", u"n"}));
}

TEST(KeymapParse, FirstCharIndexCoversEachRunOfKeys) {
  const auto map = Parse(
      u"t\r\n<om>ka A</om>\r\n<om>k B</om>\r\n<om>m C</om>\r\n<om>kz D</om>\r\n<om>é E</om>\r\n<om>¬x F</om>\r\n"
      u"<om>€ G</om>");
  // Sorted: k ka kz m ¬x é €(U+20AC)
  const auto row = [&](int code) { return map.firstCharIndex[code - kFirstIndexedCode]; };
  EXPECT_EQ(row('k'), (std::array<std::int32_t, 2>{1, 3}));
  EXPECT_EQ(row('m'), (std::array<std::int32_t, 2>{4, 4}));
  EXPECT_EQ(row('a'), (std::array<std::int32_t, 2>{0, 0}));
  EXPECT_EQ(row(172), (std::array<std::int32_t, 2>{5, 5}));
  // Code 0x80 is the euro sign in Windows-1252, not U+0080.
  EXPECT_EQ(row(0x80), (std::array<std::int32_t, 2>{7, 7}));
  EXPECT_EQ(map.IndexRow(u'€'), 0x80 - kFirstIndexedCode);
  // é (233) is loaded and sorted, but no row can reach it.
  EXPECT_EQ(map.phoneticKeys[6], u"é");
  EXPECT_EQ(map.IndexRow(u'é'), -1);
}

TEST(KeymapParse, WideCopyDropsTheModifierEndInModeOneAndReadsBytesThroughTheCodePage) {
  const std::u16string text = u"t\r\n<om>k க~</om>\r\n<om>e \u0080x</om>";
  const auto modeOne = Parse(text, 1, u'~');
  EXPECT_EQ(OutputOf(modeOne, u"k"), u"க~");
  EXPECT_EQ(modeOne.phoneticOutputsWide[1], u"க");
  EXPECT_EQ(modeOne.phoneticOutputsWide[2], u"€x");
  EXPECT_EQ(Parse(text, 0, u'~').phoneticOutputsWide[1], u"க~");
}

TEST(KeymapParse, PunctuationSlotsHoldTheKeyPairsInModeOne) {
  const std::u16string text = u"t\r\n<om>. P</om>\r\n<om>.a A</om>\r\n<om>.ab B</om>\r\n<om>.b C</om>\r\n<om>1x D</om>";
  const auto modeOne = Parse(text, 1);
  EXPECT_EQ(modeOne.punctuationOutputs['.' - kFirstIndexedCode], u".a .b");
  EXPECT_EQ(modeOne.punctuationOutputs['1' - kFirstIndexedCode], u"1x");
  const auto modeZero = Parse(text, 0);
  EXPECT_EQ(modeZero.punctuationOutputs['.' - kFirstIndexedCode], u"");
}

TEST(KeymapParse, ReadsTheJoiningLine) {
  const auto map = Parse(u"t\r\n<joining>1 200C+200D 0B82-0B83 0BBE-0BCD</joining>\r\n<om>k K</om>");
  EXPECT_TRUE(map.joining.joiningSwitch);
  EXPECT_EQ(map.joining.joiningText, u"\u200C\u200D");
  EXPECT_TRUE(map.joining.Joins(u'\u0B83'));
  EXPECT_TRUE(map.joining.Joins(u'\u0BCD'));
  EXPECT_TRUE(map.joining.Joins(u'\u0B71'));
  EXPECT_FALSE(map.joining.Joins(u'\u0B95'));
  EXPECT_FALSE(Parse(u"t\r\n<om>k K</om>").joining.joiningSwitch);
}

TEST(KeymapParse, RefusesLinesNotInOrderAndNamesTheLine) {
  struct Row {
    std::u16string_view badLine;
    std::u16string_view reasonWord;
  };
  const Row rows[] = {
      {u"</om>k K<om>", u"before"},
      {u"<om>k</om>", u"no output"},
      {u"<joining>1 zz 0B82-0B83 0BBE-0BCD</joining>", u"joining"},
      {u"<joining>1 - 0B83-0B82 0BBE-0BCD</joining>", u"joining"},
  };
  for (const auto& row : rows) {
    DataFileProblem problem;
    const std::u16string text = u"t\r\n<om>a A</om>\r\n" + std::u16string(row.badLine) + u"\r\n<om>b B</om>";
    EXPECT_FALSE(ParsePhoneticKeymap(text, {}, *settings::Windows1252(), problem).has_value());
    EXPECT_EQ(problem.lineNumber, 3) << text::Utf16ToUtf8(row.badLine);
    EXPECT_NE(problem.reason.find(row.reasonWord), std::u16string::npos) << text::Utf16ToUtf8(problem.reason);
  }
}

TEST(KeymapParse, RefusesMoreEntriesThanTheEngineCanAddress) {
  std::u16string text = u"t";
  for (int i = 0; i < 32768; ++i) text += u"\r\n<om>k K</om>";
  DataFileProblem problem;
  EXPECT_FALSE(ParsePhoneticKeymap(text, {}, *settings::Windows1252(), problem).has_value());
  EXPECT_EQ(problem.lineNumber, 32769);
  text.resize(text.size() - std::u16string_view(u"\r\n<om>k K</om>").size());
  EXPECT_TRUE(ParsePhoneticKeymap(text, {}, *settings::Windows1252(), problem).has_value());
}

class KeymapLoadTest : public ::testing::Test {
 protected:
  testing::TempFolder folder;
  std::vector<std::u16string> notices;
  DataFileNotifier notify = [this](std::u16string_view m) { notices.emplace_back(m); };

  void Write(std::u16string_view scheme, std::u16string_view text) {
    ASSERT_TRUE(settings::WriteTextFile(PhoneticKeymapPath(folder.path(), scheme), text, 3));
  }
};

// The engine keeps typing with the tables it holds: only a successful load replaces them.
TEST_F(KeymapLoadTest, ReplacesTheTablesOnlyWhenTheFileLoads) {
  Write(u"Good", u"t\r\n<om>k க்</om>\r\n<om>ka க</om>\r\n");
  Write(u"Bad", u"t\r\n<om>a அ</om>\r\n<om>b</om>\r\n");
  std::shared_ptr<const PhoneticKeymap> tables;
  ASSERT_EQ(LoadPhoneticKeymap(folder.path(), u"Good", {}, tables, notify), LoadOutcome::Loaded);
  ASSERT_NE(tables, nullptr);
  EXPECT_EQ(tables->EntryCount(), 2);
  EXPECT_EQ(tables->schemeName, u"Good");
  const auto before = tables;

  EXPECT_EQ(LoadPhoneticKeymap(folder.path(), u"Absent", {}, tables, notify), LoadOutcome::Missing);
  EXPECT_EQ(tables, before);
  EXPECT_TRUE(notices.empty());

  EXPECT_EQ(LoadPhoneticKeymap(folder.path(), u"Bad", {}, tables, notify), LoadOutcome::Refused);
  EXPECT_EQ(tables, before);
  ASSERT_EQ(notices.size(), 1u);
  const std::u16string& m = notices[0];
  EXPECT_NE(m.find(u"The data in the data file '" + PhoneticKeymapPath(folder.path(), u"Bad").u16string() +
                   u"' is not in order. Hence, unable to process the data file."),
            std::u16string::npos);
  EXPECT_NE(m.find(u"line 3"), std::u16string::npos);
  EXPECT_TRUE(m.starts_with(u"NOTE: The following is only an INFORMATIONAL message generated by 'Quilom+'"));
  EXPECT_TRUE(m.ends_with(u"OR some or all of the characters will get displayed incorrectly."));
}

TEST_F(KeymapLoadTest, ListsTheInstalledSchemes) {
  Write(u"Tamil-B", u"t\r\n");
  Write(u"Tamil-A", u"t\r\n");
  settings::WriteTextFile(folder / "notes.xml", u"x", 3);
  settings::WriteTextFile(folder / "QuilomPlus-x.txt", u"x", 3);
  EXPECT_EQ(InstalledKeymaps(folder.path()), (std::vector<std::u16string>{u"Tamil-A", u"Tamil-B"}));
}

}  // namespace
}  // namespace quilom::translit
