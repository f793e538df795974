#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command.hpp"
#include "settings/ini_file.hpp"
#include "settings/settings_lines.hpp"
#include "settings/text_file.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"

namespace quilom::cli {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::u16string>;

struct CommandRun {
  int status;
  std::string out;
  std::string err;
};

CommandRun Merge(const fs::path& shipped, const fs::path& user) {
  std::istringstream in;
  std::ostringstream out, err;
  const int status =
      RunQuilom({"--data", testing::SourceDataRoot().string(), "settings-merge", shipped.string(), user.string()}, in,
                out, err, testing::SourceDataRoot().parent_path(), false);
  return {status, out.str(), err.str()};
}

Lines ReadLines(const fs::path& file) {
  bool ok = false;
  Lines lines = settings::ReadSettingsLines(file, ok);
  EXPECT_TRUE(ok) << file;
  return lines;
}

TEST(SettingsMergeCommand, KeyFileKeepsUserValuesAndTakesShippedOrderAndNewKeys) {
  testing::TempFolder folder;
  const fs::path shipped = folder / "shipped.txt";
  const fs::path user = folder / "Settings.txt";
  settings::WriteSettingsLines(shipped, {u"New title", u"`````Global Typing", u"1", u"`````Brand New", u"7",
                                         u"`````Present Hotkey", u"Alt+F12", u""});
  settings::WriteSettingsLines(user, {u"Old title", u"`````Present Hotkey", u"  Ctrl+F9 ", u"`````Global Typing", u"0",
                                      u"`````Retired Key", u"kept", u""});

  const CommandRun run = Merge(shipped, user);

  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(ReadLines(user), (Lines{u"New title", u"`````Global Typing", u"0", u"`````Brand New", u"7",
                                    u"`````Present Hotkey", u"  Ctrl+F9 ", u"`````Retired Key", u"kept", u""}));
  EXPECT_EQ(testing::ReadBytes(user).substr(0, 2), "\xFF\xFE");
  EXPECT_NE(run.out.find("kept 3, added 1"), std::string::npos) << run.out;
}

TEST(SettingsMergeCommand, KeyFileWithAKeyOnItsLastLineTakesTheDefaultAndAFileUpToDateIsNotRewritten) {
  testing::TempFolder folder;
  const fs::path shipped = folder / "shipped.txt";
  const fs::path user = folder / "Settings.txt";
  settings::WriteSettingsLines(shipped, {u"T", u"`````A", u"1", u"`````B", u"2"});
  settings::WriteSettingsLines(user, {u"T", u"`````A", u"5", u"`````B"});
  ASSERT_EQ(Merge(shipped, user).status, 0);
  EXPECT_EQ(ReadLines(user), (Lines{u"T", u"`````A", u"5", u"`````B", u"2"}));

  // The same text in UTF-8: nothing to add, so the user's bytes stay as they were.
  testing::WriteBytes(user, "T\r\n`````A\r\n5\r\n`````B\r\n2");
  ASSERT_EQ(Merge(shipped, user).status, 0);
  EXPECT_EQ(testing::ReadBytes(user), "T\r\n`````A\r\n5\r\n`````B\r\n2");
}

TEST(SettingsMergeCommand, IniKeepsUserLinesAndAddsMissingKeysInTheirSections) {
  testing::TempFolder folder;
  const fs::path shipped = folder / "shipped.ini";
  const fs::path user = folder / "qm-settings.ini";
  settings::WriteTextFile(shipped, u"[General]\r\nStartQuilomSilently=0\r\nNewGeneral=1\r\n\r\n[Fresh]\r\nX=9\r\n", 3);
  settings::WriteTextFile(user, u"[General]\r\nStartQuilomSilently = 1\r\nmy note\r\n\r\n[Mine]\r\nY=2\r\n", 3);

  const CommandRun run = Merge(shipped, user);

  ASSERT_EQ(run.status, 0) << run.err;
  const std::u16string merged = settings::ReadTextFile(user);
  EXPECT_EQ(settings::FindIniValue(merged, u"General", u"StartQuilomSilently"), u"1");
  EXPECT_EQ(settings::FindIniValue(merged, u"General", u"NewGeneral"), u"1");
  EXPECT_EQ(settings::FindIniValue(merged, u"Fresh", u"X"), u"9");
  EXPECT_EQ(settings::FindIniValue(merged, u"Mine", u"Y"), u"2");
  EXPECT_NE(merged.find(u"my note"), std::u16string::npos);
  EXPECT_LT(merged.find(u"NewGeneral"), merged.find(u"[Mine]"));
}

TEST(SettingsMergeCommand, FolderMergesOnlySettingsFilesAndCreatesMissingOnes) {
  testing::TempFolder folder;
  const fs::path shipped = folder / "shipped";
  const fs::path user = folder / "user";
  fs::copy(testing::SourceDataRoot(), shipped, fs::copy_options::recursive);
  const fs::path typer = fs::path("Indic Direct Typer");
  fs::create_directories(user / typer);
  settings::WriteSettingsLines(user / typer / "Settings.txt", {u"old", u"`````Present Hotkey", u"Ctrl+Alt+T"});
  testing::WriteBytes(user / typer / "Settings-Choices.txt", "the user's own text");

  const CommandRun run = Merge(shipped, user);

  ASSERT_EQ(run.status, 0) << run.err;
  const Lines typerLines = ReadLines(user / typer / "Settings.txt");
  EXPECT_EQ(typerLines.size(), ReadLines(shipped / typer / "Settings.txt").size());
  size_t index = 0;
  ASSERT_EQ(settings::FindKeyLine(typerLines, u"Present Hotkey", index), settings::KeyLookup::Found);
  EXPECT_EQ(typerLines[index + 1], u"Ctrl+Alt+T");
  ASSERT_EQ(settings::FindKeyLine(typerLines, u"Global Typing", index), settings::KeyLookup::Found);
  EXPECT_EQ(testing::ReadBytes(user / "pelandr" / "inis" / "qm-settings.ini"),
            testing::ReadBytes(shipped / "pelandr" / "inis" / "qm-settings.ini"));
  EXPECT_EQ(testing::ReadBytes(user / typer / "Settings-Choices.txt"), "the user's own text");
  EXPECT_FALSE(fs::exists(user / typer / "qmLFKs-txts-xmls"));
}

TEST(SettingsMergeCommand, UnreadableUserFileAndBadArgumentsFailWithoutTouchingAnything) {
  testing::ScopedRecordingReporter reporter;
  testing::TempFolder folder;
  const fs::path shipped = folder / "shipped.txt";
  settings::WriteSettingsLines(shipped, {u"T", u"`````A", u"1"});
  const fs::path blocked = folder / "Settings.txt";
  fs::create_directories(blocked);

  const CommandRun run = Merge(shipped, blocked);
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("left as it is"), std::string::npos) << run.err;
  EXPECT_TRUE(fs::is_directory(blocked));

  EXPECT_EQ(Merge(folder / "absent.txt", folder / "user.txt").status, 1);
  EXPECT_FALSE(fs::exists(folder / "user.txt"));

  std::istringstream in;
  std::ostringstream out, err;
  EXPECT_EQ(RunQuilom({"settings-merge", shipped.string()}, in, out, err, folder.path(), false), 2);
}

}  // namespace
}  // namespace quilom::cli
