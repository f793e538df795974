#include "settings/settings_repair.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "settings/data_folders.hpp"
#include "settings/leftover_saves.hpp"
#include "settings/text_codec.hpp"
#include "settings/text_file.hpp"
#include "settings/tool_settings.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::settings {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;
using testing::ScopedRecordingReporter;
using testing::TempFolder;
using testing::Utf16LeWithMark;
using testing::WriteBytes;

const SettingsDefaults kDefaults{u"Test settings", {{u"Alpha", u"1"}, {u"Beta", u"0"}, {u"Gamma", u"Alt+F12"}}};

std::vector<fs::path> DamagedCopies(const fs::path& folder) {
  std::vector<fs::path> copies;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().filename().string().starts_with("Settings.txt.damaged-")) copies.push_back(entry.path());
  }
  return copies;
}

class SettingsRepairTest : public ::testing::Test {
 protected:
  TempFolder folder;
  ToolSettings settings{folder.path(), u"LOAD", u"SAVE", &kDefaults};
  ScopedRecordingReporter reports;

  fs::path File() const { return folder / "Settings.txt"; }
  std::u16string Text() const { return ReadTextFile(File()); }
};

struct DamageRow {
  const char* name;
  std::string bytes;
  std::u16string alpha, beta, gamma;  // what reads back after the mending
  std::u16string damage;              // the words the notice uses
};

class DamagedFiles : public SettingsRepairTest, public ::testing::WithParamInterface<DamageRow> {};

// The user set Alpha to 7 and Beta to 5 in every row; whatever could be read survives, the
// rest comes back with its default, and the damaged bytes are kept aside unchanged.
TEST_P(DamagedFiles, KeepEveryReadableKeyAndTheDamagedBytes) {
  const DamageRow& row = GetParam();
  WriteBytes(File(), row.bytes);
  EXPECT_EQ(settings.GetToolSetting(u"Alpha"), row.alpha);
  EXPECT_EQ(settings.GetToolSetting(u"Beta"), row.beta);
  EXPECT_EQ(settings.GetToolSetting(u"Gamma"), row.gamma);

  const auto copies = DamagedCopies(folder.path());
  ASSERT_EQ(copies.size(), 1u);
  EXPECT_EQ(ReadBytes(copies[0]), row.bytes);
  EXPECT_EQ(CheckSettingsFile(File()).health, SettingsFileHealth::Healthy) << "the file is mended on the disk";
  EXPECT_EQ(ReadBytes(File()).substr(0, 2), "\xFF\xFE");
  ASSERT_EQ(reports->messages.size(), 1u) << "one notice, not one per read";
  EXPECT_TRUE(reports->HasTag(u"LOAD"));
  EXPECT_NE(reports->messages[0].find(row.damage), std::u16string::npos);
  EXPECT_NE(reports->messages[0].find(copies[0].filename().u16string()), std::u16string::npos);
}

const std::u16string kWhole = u"Test settings\r\n`````Alpha\r\n7\r\n`````Beta\r\n5\r\n`````Gamma\r\nCtrl+F9\r\n";

std::string WithoutLastByte(std::string bytes) {
  bytes.pop_back();
  return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    SettingsRepair, DamagedFiles,
    ::testing::Values(
        DamageRow{"CutMidKey", Utf16LeWithMark(u"Test settings\r\n`````Alpha\r\n7\r\n`````Beta\r\n5\r\n`````Gam"), u"7",
                  u"5", u"Alt+F12", u"cut short"},
        DamageRow{"CutInsideTheKeyPrefix", Utf16LeWithMark(u"Test settings\r\n`````Alpha\r\n7\r\n`````Beta\r\n5\r\n``"),
                  u"7", u"5", u"Alt+F12", u"cut short"},
        DamageRow{"LastKeyLineWithoutValue",
                  Utf16LeWithMark(u"Test settings\r\n`````Alpha\r\n7\r\n`````Beta\r\n5\r\n`````Gamma"), u"7", u"5",
                  u"Alt+F12", u"cut short"},
        DamageRow{"CutBetweenCrAndLf",
                  Utf16LeWithMark(u"Test settings\r\n`````Alpha\r\n7\r\n`````Beta\r\n5\r\n`````Gamma\r"), u"7", u"5",
                  u"Alt+F12", u"cut short"},
        DamageRow{"OddLengthLittleEndian", WithoutLastByte(Utf16LeWithMark(kWhole)), u"7", u"5", u"Alt+F12",
                  u"odd number of bytes"},
        DamageRow{"OddLengthBigEndian", WithoutLastByte(EncodeText(kWhole, 5)), u"7", u"5", u"Alt+F12",
                  u"odd number of bytes"},
        DamageRow{"NotUtf8", "Test settings\r\n`````Alpha\r\n7\r\n`````Beta\r\n\xE9t\xE9\r\n`````Gamma\r\nCtrl+F9\r\n",
                  u"7", u"0", u"Ctrl+F9", u"not text in its encoding"},
        DamageRow{"UnreadableKeyLine", "Test settings\r\n`````Al\xFFha\r\n7\r\n`````Beta\r\n5\r\n", u"1", u"5",
                  u"Alt+F12", u"not text in its encoding"},
        DamageRow{"BareLineFeeds", "Test settings\n`````Alpha\n7\n`````Beta\n5\n", u"7", u"5", u"Alt+F12",
                  u"not separated by CR LF"}),
    [](const ::testing::TestParamInfo<DamageRow>& info) { return info.param.name; });

TEST_F(SettingsRepairTest, AValueWithNoLineBreakAfterItEndsAWholeFile) {
  // Files written by hand or by earlier versions end so; half a value looks no different.
  const std::string whole = Utf16LeWithMark(u"Test settings\r\n`````Alpha\r\n7\r\n`````Beta\r\n5\r\n`````Gamma\r\nF9");
  WriteBytes(File(), whole);
  EXPECT_EQ(CheckSettingsFile(File()).health, SettingsFileHealth::Healthy);
  EXPECT_EQ(settings.GetToolSetting(u"Gamma"), u"F9");
  EXPECT_EQ(ReadBytes(File()), whole);
  EXPECT_TRUE(reports->messages.empty());
  EXPECT_TRUE(DamagedCopies(folder.path()).empty());
}

TEST_F(SettingsRepairTest, AMendedFileKeepsTheUsersOwnKeysAndGetsEveryKnownKey) {
  WriteBytes(File(), Utf16LeWithMark(u"My title\r\n`````Mine\r\nhello\r\n`````Beta\r\n5\r\n`````Alp"));
  settings.GetToolSetting(u"Beta");
  EXPECT_EQ(Text(),
            u"My title\r\n`````Mine\r\nhello\r\n`````Beta\r\n5\r\n`````Alpha\r\n1\r\n`````Gamma\r\nAlt+F12\r\n");
}

TEST_F(SettingsRepairTest, AMissingFileIsMadeAgainWithOneNoticeAndThenKeepsWhatIsSaved) {
  EXPECT_EQ(settings.GetToolSetting(u"Gamma"), u"Alt+F12");
  EXPECT_EQ(Text(), u"Test settings\r\n`````Alpha\r\n1\r\n`````Beta\r\n0\r\n`````Gamma\r\nAlt+F12\r\n");
  ASSERT_EQ(reports->messages.size(), 1u);
  EXPECT_NE(reports->messages[0].find(u"missing"), std::u16string::npos);
  for (int click = 0; click < 5; ++click) EXPECT_TRUE(settings.SaveToolSetting(u"Beta", click % 2 ? u"1" : u"0"));
  EXPECT_EQ(settings.GetToolSetting(u"Beta"), u"0");
  EXPECT_EQ(reports->messages.size(), 1u) << "never one notice per click";
  EXPECT_TRUE(DamagedCopies(folder.path()).empty());
}

TEST_F(SettingsRepairTest, AnEmptyFileIsMadeAgainToo) {
  WriteBytes(File(), "");
  EXPECT_EQ(settings.GetToolSetting(u"Alpha"), u"1");
  EXPECT_EQ(CheckSettingsFile(File()).health, SettingsFileHealth::Healthy);
  EXPECT_EQ(reports->messages.size(), 1u);
}

TEST_F(SettingsRepairTest, ASaveNeverDropsAKeyAndPutsBackTheKnownKeysAFileLost) {
  WriteBytes(File(), Utf16LeWithMark(u"Test settings\r\n`````Mine\r\nhello\r\n`````Gamma\r\nCtrl+F9\r\n"));
  ASSERT_TRUE(settings.SaveToolSetting(u"Alpha", u"7"));
  EXPECT_EQ(Text(),
            u"Test settings\r\n`````Mine\r\nhello\r\n`````Gamma\r\nCtrl+F9\r\n`````Alpha\r\n7\r\n`````Beta\r\n0\r\n");
  ASSERT_TRUE(settings.SaveToolSetting(u"Unknown", u"x"));
  EXPECT_EQ(Text().find(u"Unknown"), std::u16string::npos) << "a key nobody knows is still not made up";
  EXPECT_TRUE(reports->messages.empty()) << "a healthy file that lacks keys is no damage";
  EXPECT_TRUE(DamagedCopies(folder.path()).empty());
}

TEST_F(SettingsRepairTest, ADamagedFileIsCopiedAsideOnceWhateverTheClicks) {
  WriteBytes(File(), Utf16LeWithMark(u"Test settings\r\n`````Alpha\r\n7\r\n`````Be"));
  for (int click = 0; click < 4; ++click) settings.SaveToolSetting(u"Beta", u"5");
  EXPECT_EQ(DamagedCopies(folder.path()).size(), 1u);
  EXPECT_EQ(reports->messages.size(), 1u);
  EXPECT_EQ(settings.GetToolSetting(u"Alpha"), u"7");
  EXPECT_EQ(settings.GetToolSetting(u"Beta"), u"5");
}

TEST_F(SettingsRepairTest, WithoutDefaultsADamagedFileIsLeftAsItIs) {
  const std::string cut = Utf16LeWithMark(u"Test settings\r\n`````Alpha\r\n7\r\n`````Be");
  WriteBytes(File(), cut);
  ToolSettings plain{folder.path(), u"LOAD", u"SAVE"};
  EXPECT_EQ(plain.GetToolSetting(u"Alpha"), u"7");
  EXPECT_EQ(ReadBytes(File()), cut);
  EXPECT_TRUE(DamagedCopies(folder.path()).empty());
}

TEST(DamagedCopyPath, NamesTheCopyByTheUtcTimeAndNeverOverwritesOne) {
  TempFolder folder;
  using namespace std::chrono;
  const auto when = sys_days{year{2026} / November / 25} + hours{1} + minutes{30} + seconds{45} + milliseconds{900};
  const fs::path first = DamagedCopyPath(folder / "Settings.txt", when);
  EXPECT_EQ(first.filename(), "Settings.txt.damaged-20261125-013045");
  WriteBytes(first, "x");
  EXPECT_EQ(DamagedCopyPath(folder / "Settings.txt", when).filename(), "Settings.txt.damaged-20261125-013045-2");
}

TEST(ShippedSettingsDefaults, AreTheShippedFilesLineForLine) {
  const DataFolders folders = DataFolders::ForDataRoot(testing::SourceDataRoot());
  for (const char16_t* module :
       {u"Indic Direct Typer", u"Unicode Viewer", u"URL Normalizer", u"Tamil Fonts Converter",
        u"Sanskrit Tamil Colorizer", u"Auto Transliterator", u"Dual_Screen Transliterator", u"pelandr"}) {
    SCOPED_TRACE(text::Utf16ToUtf8(module));
    const SettingsDefaults* defaults = ShippedSettingsOf(module);
    ASSERT_NE(defaults, nullptr);
    const auto shipped = ReadTextFile(folders.ModuleDataFolder(module) / "Settings.txt");
    EXPECT_EQ(text::Join(DefaultSettingsLines(*defaults), text::kCrLf), shipped);
  }
  EXPECT_EQ(ShippedSettingsOf(u"No such module"), nullptr);
}

TEST(LeftoverSaves, AreRemovedFromEveryDataFolderAndNothingElseIs) {
  TempFolder root;
  const DataFolders folders = DataFolders::ForDataRoot(root.path());
  fs::create_directories(folders.mainDataFolder);
  fs::create_directories(folders.sharedDataFolder / "inis");
  WriteBytes(folders.mainDataFolder / "Settings.txt.1a2b.saving", "half");
  WriteBytes(folders.sharedDataFolder / "inis" / "qm-settings.ini.3c.saving", "half");
  WriteBytes(folders.mainDataFolder / "Settings.txt", "kept");
  EXPECT_EQ(RemoveLeftoverSaves(folders), 2);
  EXPECT_FALSE(fs::exists(folders.mainDataFolder / "Settings.txt.1a2b.saving"));
  EXPECT_EQ(ReadBytes(folders.mainDataFolder / "Settings.txt"), "kept");
  EXPECT_EQ(RemoveLeftoverSaves(DataFolders::ForDataRoot(root / "missing")), 0);
}

}  // namespace
}  // namespace quilom::settings
