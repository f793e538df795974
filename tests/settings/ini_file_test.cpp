#include "settings/ini_file.hpp"

#include <gtest/gtest.h>

#include <string>

#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"

namespace quilom::settings {
namespace {

using testing::ReadBytes;
using testing::ScopedRecordingReporter;
using testing::TempFolder;
using testing::WriteBytes;

const std::u16string kIni =
    u"top=0\r\n"
    u"[General]\r\n"
    u"StartQuilomSilently=1\r\n"
    u" BalloonTipAtStartup = 0 \r\n"
    u"url=http://x/?a=b\r\n"
    u"\r\n"
    u"[Other]\r\n"
    u"StartQuilomSilently=7\r\n";

TEST(FindIniValue, FindsKeysBySectionExactly) {
  EXPECT_EQ(FindIniValue(kIni, u"General", u"StartQuilomSilently"), u"1");
  EXPECT_EQ(FindIniValue(kIni, u"Other", u"StartQuilomSilently"), u"7");
  EXPECT_EQ(FindIniValue(kIni, u"General", u"BalloonTipAtStartup"), u"0");
  EXPECT_EQ(FindIniValue(kIni, u"General", u"url"), u"http://x/?a=b");  // split at the first "="
  EXPECT_EQ(FindIniValue(kIni, u"", u"top"), u"0");
  EXPECT_EQ(FindIniValue(kIni, u"", u"StartQuilomSilently"), std::nullopt);
  EXPECT_EQ(FindIniValue(kIni, u"general", u"StartQuilomSilently"), std::nullopt);
  EXPECT_EQ(FindIniValue(kIni, u"General", u"startquilomsilently"), std::nullopt);
  EXPECT_EQ(FindIniValue(kIni, u"Missing", u"top"), std::nullopt);
  EXPECT_EQ(FindIniValue(u"", u"", u"top"), std::nullopt);
}

TEST(SetIniValue, ChangesOnlyTheLineOfTheKey) {
  EXPECT_EQ(SetIniValue(kIni, u"Other", u"StartQuilomSilently", u"0"),
            u"top=0\r\n[General]\r\nStartQuilomSilently=1\r\n BalloonTipAtStartup = 0 \r\nurl=http://x/?a=b\r\n\r\n"
            u"[Other]\r\nStartQuilomSilently=0\r\n");
  EXPECT_EQ(SetIniValue(kIni, u"General", u"BalloonTipAtStartup", u"1"),
            u"top=0\r\n[General]\r\nStartQuilomSilently=1\r\n BalloonTipAtStartup =1\r\nurl=http://x/?a=b\r\n\r\n"
            u"[Other]\r\nStartQuilomSilently=7\r\n");
}

TEST(SetIniValue, AddsNewKeysAtTheEndOfTheirSectionAndNewSectionsAtTheEnd) {
  EXPECT_EQ(
      SetIniValue(kIni, u"General", u"New", u"x"),
      u"top=0\r\n[General]\r\nStartQuilomSilently=1\r\n BalloonTipAtStartup = 0 \r\nurl=http://x/?a=b\r\nNew=x\r\n"
      u"\r\n[Other]\r\nStartQuilomSilently=7\r\n");
  EXPECT_EQ(SetIniValue(kIni, u"Third", u"k", u"v"), kIni + u"\r\n[Third]\r\nk=v\r\n");
  EXPECT_EQ(SetIniValue(u"[A]\r\nx=1", u"B", u"k", u"v"), u"[A]\r\nx=1\r\n\r\n[B]\r\nk=v");
  EXPECT_EQ(SetIniValue(u"", u"A", u"k", u"v"), u"[A]\r\nk=v");
  EXPECT_EQ(SetIniValue(u"[A]\r\nx=1", u"", u"k", u"v"), u"k=v\r\n[A]\r\nx=1");
  EXPECT_EQ(SetIniValue(u"[A]\r\n[B]\r\ny=2", u"A", u"k", u"v"), u"[A]\r\nk=v\r\n[B]\r\ny=2");
}

class IniSettingsTest : public ::testing::Test {
 protected:
  TempFolder folder;
  DataFolders folders = DataFolders::ForProgramFolder(folder.path());
  IniSettings ini{folders, kTypingSettingsIni};
  ScopedRecordingReporter reports;
};

TEST_F(IniSettingsTest, AMissingFileOrKeyGivesTheDefaultSilently) {
  EXPECT_EQ(ini.Read(u"General", u"BalloonTipAtStartup", u"1"), u"1");
  EXPECT_TRUE(ini.ReadTicked(u"General", u"BalloonTipAtStartup", true));
  EXPECT_FALSE(ini.ReadTicked(u"General", u"chCh", false));
  WriteBytes(ini.DataCopy(), "[General]\r\n");
  EXPECT_EQ(ini.Read(u"General", u"BalloonTipAtStartup", u"1"), u"1");
  EXPECT_TRUE(reports->messages.empty());
}

TEST_F(IniSettingsTest, WritesUtf16WithMarkAndKeepsHandEditedLines) {
  WriteBytes(ini.DataCopy(), "[General]\nStartQuilomSilently=0\n");  // hand-edited, LF only, UTF-8
  ASSERT_TRUE(ini.Write(u"General", u"StartQuilomSilently", u"1"));
  EXPECT_EQ(ini.Read(u"General", u"StartQuilomSilently", u"0"), u"1");
  const std::string bytes = ReadBytes(ini.DataCopy());
  ASSERT_GE(bytes.size(), 2u);
  EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE");
  EXPECT_EQ(bytes.size(), 2 + 2 * std::u16string(u"[General]\r\nStartQuilomSilently=1\r\n").size());
  EXPECT_TRUE(reports->messages.empty());
}

TEST_F(IniSettingsTest, TheDataFolderCopyWinsAndTheProgramCopyIsCarriedOverOnTheFirstSave) {
  WriteBytes(ini.ProgramCopy(), "[General]\r\nA=program\r\nB=kept\r\n");
  EXPECT_EQ(ini.Read(u"General", u"A", u""), u"program");
  ASSERT_TRUE(ini.Write(u"General", u"A", u"user"));
  EXPECT_EQ(ini.Read(u"General", u"A", u""), u"user");
  EXPECT_EQ(ini.Read(u"General", u"B", u""), u"kept");
  EXPECT_EQ(ReadBytes(ini.ProgramCopy()), "[General]\r\nA=program\r\nB=kept\r\n");
  EXPECT_TRUE(std::filesystem::exists(folders.sharedDataFolder / "inis" / "qm-settings.ini"));
}

TEST_F(IniSettingsTest, AnUnreadableFileIsReportedAndNotOverwritten) {
  const std::string damaged("\xFE\xFF\0A\0", 5);
  WriteBytes(ini.DataCopy(), damaged);
  EXPECT_EQ(ini.Read(u"General", u"A", u"d"), u"d");
  EXPECT_FALSE(ini.Write(u"General", u"A", u"1"));
  EXPECT_EQ(ReadBytes(ini.DataCopy()), damaged);
  EXPECT_EQ(reports->messages.size(), 2u);
}

}  // namespace
}  // namespace quilom::settings
