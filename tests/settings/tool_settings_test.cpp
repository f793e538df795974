#include "settings/tool_settings.hpp"

#include <gtest/gtest.h>

#include <string>

#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"

namespace quilom::settings {
namespace {

using testing::ReadBytes;
using testing::ScopedRecordingReporter;
using testing::TempFolder;
using testing::Utf16LeWithMark;
using testing::WriteBytes;

class ToolSettingsTest : public ::testing::Test {
 protected:
  TempFolder folder;
  ToolSettings settings{folder.path(), u"LOAD", u"SAVE"};
  ScopedRecordingReporter reports;

  void Ship(std::u16string_view lines) { WriteBytes(folder / "Settings.txt", Utf16LeWithMark(lines)); }
  std::string Bytes() const { return ReadBytes(folder / "Settings.txt"); }
};

TEST_F(ToolSettingsTest, AKeyOnTheTitleLineIsNeverFoundButOnLineOneItIs) {
  Ship(u"`````Auto Open\r\n1\r\n`````Auto Copy\r\n  12 \r\n");
  EXPECT_EQ(settings.GetToolSetting(u"Auto Open"), u"");
  EXPECT_EQ(settings.GetToolSetting(u"Auto Copy"), u"12");
  EXPECT_TRUE(reports->messages.empty());
}

TEST_F(ToolSettingsTest, KeysMatchExactlyAndTheFirstOccurrenceWins) {
  Ship(u"title\r\n`````auto open\r\n5\r\n`````Auto Open \r\n6\r\n`````Auto Open\r\n7\r\n`````Auto Open\r\n8");
  EXPECT_EQ(settings.GetToolSetting(u"Auto Open"), u"7");
  EXPECT_EQ(settings.GetToolSetting(u"auto open"), u"5");
  EXPECT_EQ(settings.GetToolSetting(u"Auto"), u"");
  EXPECT_TRUE(reports->messages.empty());
}

TEST_F(ToolSettingsTest, ASaveStoresTheValueUntrimmedAndTouchesNothingElse) {
  Ship(u"title\r\n`````A\r\n1\r\n`````B\r\nகொ\r\n");
  ASSERT_TRUE(settings.SaveToolSetting(u"A", u"x "));
  EXPECT_EQ(Bytes(), Utf16LeWithMark(u"title\r\n`````A\r\nx \r\n`````B\r\nகொ\r\n"));
  EXPECT_EQ(settings.GetToolSetting(u"A"), u"x");
  EXPECT_TRUE(reports->messages.empty());
}

TEST_F(ToolSettingsTest, SavingAnUnknownKeyOnlyConvertsTheFileToUtf16) {
  WriteBytes(folder / "Settings.txt", "title\r\n`````A\r\n\xE0\xAE\x95\r\n");
  ASSERT_TRUE(settings.SaveToolSetting(u"Z", u"9"));
  EXPECT_EQ(Bytes(), Utf16LeWithMark(u"title\r\n`````A\r\nக\r\n"));
  EXPECT_TRUE(reports->messages.empty());
}

TEST_F(ToolSettingsTest, AKeyLineWithNoValueLineIsReportedWithTheWindowsTags) {
  Ship(u"title\r\n`````A\r\n1\r\n`````B");
  const std::string before = Bytes();
  EXPECT_EQ(settings.GetToolSetting(u"B"), u"");
  EXPECT_TRUE(reports->HasTag(u"LOAD"));
  EXPECT_FALSE(settings.SaveToolSetting(u"B", u"2"));
  EXPECT_TRUE(reports->HasTag(u"SAVE"));
  EXPECT_EQ(Bytes(), before);
}

TEST_F(ToolSettingsTest, AMissingOrUnreadableFileIsReportedOnceAndNeverOverwritten) {
  EXPECT_EQ(settings.GetToolSetting(u"A"), u"");
  EXPECT_FALSE(settings.SaveToolSetting(u"A", u"1"));
  EXPECT_FALSE(std::filesystem::exists(folder / "Settings.txt"));
  EXPECT_EQ(reports->messages.size(), 2u);  // one "RFF" per read, no save tag

  const std::string damaged("\xFE\xFF\0`\0", 5);
  WriteBytes(folder / "Settings.txt", damaged);
  EXPECT_FALSE(settings.SaveToolSetting(u"A", u"1"));
  EXPECT_EQ(Bytes(), damaged);
}

TEST_F(ToolSettingsTest, AMarklessLatin1FileReadsAsUtf8WithReplacementCharacters) {
  WriteBytes(folder / "Settings.txt", "title\r\n`````Name\r\ncaf\xE9\r\n");
  EXPECT_EQ(settings.GetToolSetting(u"Name"), u"caf\uFFFD");
}

TEST_F(ToolSettingsTest, TheOnePassLoaderAppliesKnownKeysInFileOrder) {
  Ship(u"`````B\r\n0\r\n`````B\r\n 1 \r\nnoise\r\n`````A\r\n2\r\n`````Other\r\n3\r\n`````B\r\n4\r\n");
  std::vector<std::u16string> applied;
  settings.LoadToolSettings({{u"A", [&](const std::u16string& v) { applied.push_back(u"A=" + v); }},
                             {u"B", [&](const std::u16string& v) { applied.push_back(u"B=" + v); }}});
  EXPECT_EQ(applied, (std::vector<std::u16string>{u"B=1", u"A=2", u"B=4"}));

  const auto values = settings.ReadToolSettings({u"A", u"B", u"Absent"});
  EXPECT_EQ(values, (std::map<std::u16string, std::u16string>{{u"A", u"2"}, {u"B", u"1"}}));
  EXPECT_TRUE(reports->messages.empty());
}

TEST_F(ToolSettingsTest, TheOnePassLoaderStopsAtAKnownKeyWithoutAValue) {
  Ship(u"t\r\n`````A\r\n1\r\n`````B");
  int calls = 0;
  settings.LoadToolSettings(
      {{u"A", [&](const std::u16string&) { ++calls; }}, {u"B", [&](const std::u16string&) { ++calls; }}});
  EXPECT_EQ(calls, 1);
  EXPECT_TRUE(reports->HasTag(u"LOAD"));
}

TEST(ToolSettingsFor, BindsEachWindowToItsFolderAndTags) {
  const auto folders = DataFolders::ForProgramFolder("/opt/q");
  const auto url = ToolSettings::For(folders, SettingsWindow::UrlNormaliser);
  EXPECT_EQ(url.SettingsFile(), std::filesystem::path("/opt/q/Sorvin/URL Normalizer/Settings.txt"));
  EXPECT_EQ(TagsOf(SettingsWindow::UrlNormaliser).load, u"UV - GsUv");
  EXPECT_EQ(TagsOf(SettingsWindow::UrlNormaliser).save, u"UV - WsUv");
  EXPECT_EQ(TagsOf(SettingsWindow::FontsConverter).save, u"TFC - WrS");
  EXPECT_EQ(TagsOf(SettingsWindow::MainTyping).load, u"DT - LdS");
  EXPECT_EQ(ToolSettings::For(folders, SettingsWindow::FontsConverter).SettingsFile(),
            std::filesystem::path("/opt/q/Sorvin/Tamil Fonts Converter/Settings.txt"));
  EXPECT_EQ(folders.keymapFolder, std::filesystem::path("/opt/q/Sorvin/Indic Direct Typer/qmLFKs-txts-xmls"));
  EXPECT_EQ(folders.sharedDataFolder, std::filesystem::path("/opt/q/Sorvin/pelandr"));
  const auto fromRoot = DataFolders::ForDataRoot("/opt/q/Sorvin/");
  EXPECT_EQ(fromRoot.programFolder, std::filesystem::path("/opt/q"));
  EXPECT_EQ(fromRoot.mainDataFolder, folders.mainDataFolder);
}

}  // namespace
}  // namespace quilom::settings
