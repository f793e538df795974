#include "settings/settings_list.hpp"

#include <gtest/gtest.h>

#include <string>

#include "settings/settings_choices.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"

namespace quilom::settings {
namespace {

using testing::ReadBytes;
using testing::ScopedRecordingReporter;
using testing::TempFolder;
using testing::Utf16LeWithMark;
using testing::WriteBytes;

TEST(SettingsListOf, ListsKeysOrUntrimmedValuesInFileOrder) {
  const std::u16string text = u"title\r\n`````first\r\n 10 \r\nstray\r\n`````second\r\n20\r\n`````last";
  EXPECT_EQ(SettingsListOf(text, true), u"`````first\r\n`````second\r\n`````last\r\n");
  EXPECT_EQ(SettingsListOf(text, false), u" 10 \r\n20\r\n");  // the last key has no value line
  EXPECT_EQ(SettingsListOf(u"no keys here\r\nat all", true), u"");
}

TEST(SettingsListOf, StartsAtTheFirstKeyPrefixSoTheFirstLineMayBeAKey) {
  EXPECT_EQ(SettingsListOf(u"`````a\r\n1\r\n`````b\r\n2", false), u"1\r\n2\r\n");
  // The cut may fall inside the title line: what follows the prefix there is a key.
  EXPECT_EQ(SettingsListOf(u"Floater `````left\r\n5", false), u"5\r\n");
}

TEST(ReadSettingsListEntries, ReadsAFileSplitIntoEntries) {
  ScopedRecordingReporter reports;
  TempFolder folder;
  WriteBytes(folder / "g.txt", Utf16LeWithMark(u"General\r\n`````a\r\n1\r\n`````b\r\n0\r\n`````c\r\n-3\r\n"));
  EXPECT_EQ(ReadSettingsListEntries(folder / "g.txt", false), (std::vector<std::u16string>{u"1", u"0", u"-3"}));
  EXPECT_TRUE(ReadSettingsListEntries(folder / "none.txt", false).empty());
  EXPECT_EQ(reports->messages.size(), 1u);  // only the missing file's "RFF"
}

TEST(WriteSettingsValues, WritesValuesOverValueLinesInOrder) {
  ScopedRecordingReporter reports;
  TempFolder folder;
  const auto file = folder / "f.txt";
  struct Row {
    const char* name;
    std::u16string before;
    std::vector<std::u16string> values;
    std::u16string after;
  };
  const Row rows[] = {
      {"one for one", u"t\r\n`````a\r\n1\r\n`````b\r\n2", {u"x", u"y"}, u"t\r\n`````a\r\nx\r\n`````b\r\ny"},
      {"fewer values leave the rest", u"t\r\n`````a\r\n1\r\n`````b\r\n2", {u"x"}, u"t\r\n`````a\r\nx\r\n`````b\r\n2"},
      {"surplus values are dropped", u"t\r\n`````a\r\n1", {u"x", u"y", u"z"}, u"t\r\n`````a\r\nx"},
      {"a last key line without value is skipped",
       u"t\r\n`````a\r\n1\r\n`````b",
       {u"x", u"y"},
       u"t\r\n`````a\r\nx\r\n`````b"},
      {"line 0 counts here", u"`````a\r\n1\r\n`````b\r\n2", {u"x", u"y"}, u"`````a\r\nx\r\n`````b\r\ny"},
      {"no key lines", u"just text", {u"x"}, u"just text"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    WriteBytes(file, Utf16LeWithMark(row.before));
    EXPECT_TRUE(WriteSettingsValues(file, row.values));
    EXPECT_EQ(ReadBytes(file), Utf16LeWithMark(row.after));
  }
  EXPECT_TRUE(reports->messages.empty());
}

TEST(WriteSettingsValues, ConvertsToUtf16AndLeavesAnUnreadableFileAlone) {
  ScopedRecordingReporter reports;
  TempFolder folder;
  WriteBytes(folder / "f.txt", "t\r\n`````a\r\n1");
  ASSERT_TRUE(WriteSettingsValues(folder / "f.txt", {u"வ"}));
  EXPECT_EQ(ReadBytes(folder / "f.txt"), Utf16LeWithMark(u"t\r\n`````a\r\nவ"));
  EXPECT_FALSE(WriteSettingsValues(folder / "missing.txt", {u"1"}));
  EXPECT_FALSE(std::filesystem::exists(folder / "missing.txt"));
}

TEST(SettingsChoicesOf, TakesTheLinesAfterTheKeyUpToTheFirstBlankOne) {
  const std::u16string text =
      u"`````Sound\r\nignored: line 0\r\n"
      u"  `````Sound  \r\n Beep \r\nChime\r\n   \r\nafter the blank\r\n"
      u"`````Size\r\nSmall\r\nLarge";
  EXPECT_EQ(SettingsChoicesOf(text, u"Sound"), u"Beep|Chime");
  EXPECT_EQ(SettingsChoicesOf(text, u"Size"), u"Small|Large");  // the end of the file ends the list
  EXPECT_EQ(SettingsChoicesOf(text, u"size"), u"");
  EXPECT_EQ(SettingsChoicesOf(u"t\r\n`````Empty\r\n\r\nx", u"Empty"), u"");
}

TEST(ReadSettingsChoices, ReadsTheChoicesFile) {
  TempFolder folder;
  WriteBytes(folder / "c.txt", Utf16LeWithMark(u"Choices\r\n`````Font Size\r\n10\r\n12\r\n\r\n"));
  EXPECT_EQ(ReadSettingsChoices(folder / "c.txt", u"Font Size"), u"10|12");
}

}  // namespace
}  // namespace quilom::settings
