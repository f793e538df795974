#include "translit/typing_settings.hpp"

#include <gtest/gtest.h>

#include <set>

#include "settings/ini_file.hpp"
#include "settings/text_file.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "translit/typing_settings2.hpp"
#include "translit/typing_settings_items.hpp"

namespace quilom::translit {
namespace {

using settings::DataFolders;
using testing::SourceDataRoot;
using testing::TempFolder;

class ScriptedPrompter final : public Prompter {
 public:
  explicit ScriptedPrompter(bool answer) : answer_(answer) {}
  bool AskYesNo(std::u16string_view title, std::u16string_view question) override {
    titles.emplace_back(title);
    questions.emplace_back(question);
    return answer_;
  }
  std::vector<std::u16string> titles;
  std::vector<std::u16string> questions;

 private:
  bool answer_;
};

std::u16string IniValue(const DataFolders& folders, std::u16string_view file, std::u16string_view section,
                        std::u16string_view key) {
  return settings::IniSettings(folders, file).Read(section, key, u"<missing>");
}

TEST(TypingSettings, FreshInstallationAndMissingFilesGiveTheDefaults) {
  TypingSettings fresh;
  EXPECT_TRUE(fresh.balloonAtStartup && fresh.classic && fresh.consecutiveAgaraUyirmeys);
  EXPECT_FALSE(fresh.startSilently || fresh.minimizeOnClose || fresh.excelTyping || fresh.chCh ||
               fresh.ownKeyboardLayout || fresh.excludeH || fresh.tamilNumerals || fresh.extendedScheme);

  EXPECT_EQ(LoadTypingSettings(DataFolders::ForDataRoot(SourceDataRoot())), fresh);
  TempFolder empty;
  EXPECT_EQ(LoadTypingSettings(DataFolders::ForDataRoot(empty / "Sorvin")), fresh);
}

TEST(TypingSettings, EveryKeyIsReadFromItsOwnSection) {
  TempFolder temp;
  const auto folders = DataFolders::ForDataRoot(temp / "Sorvin");
  // Each key flipped from its default; a key in the wrong section must not count.
  const TypingSettingKey flipped[] = {kGeneralItems[0], kGeneralItems[1],     kGeneralItems[2],     kGeneralItems[3],
                                      kExcludeHKey,     kTamilNumeralsKey,    kConsecutiveAgaraKey, kChChKey,
                                      kClassicKey,      kOwnKeyboardLayoutKey};
  for (const auto& key : flipped) ASSERT_TRUE(WriteTypingSetting(folders, key, key.fallback != u"1"));
  settings::IniSettings(folders, settings::kTypingSettingsIni).Write(kGeneralSection, u"chCh", u"0");
  settings::IniSettings(folders, settings::kTypingSettings2Ini).Write(u"", kExtendedScheme, u"1");

  const auto s = LoadTypingSettings(folders);
  EXPECT_TRUE(s.startSilently && s.minimizeOnClose && s.excelTyping && s.excludeH && s.tamilNumerals && s.chCh &&
              s.ownKeyboardLayout && s.extendedScheme);
  EXPECT_FALSE(s.balloonAtStartup || s.consecutiveAgaraUyirmeys || s.classic);
}

TEST(TypingSettings, GeneralItemsAreWrittenAtOnce) {
  TempFolder temp;
  const auto folders = DataFolders::ForDataRoot(temp / "Sorvin");
  ScriptedPrompter never(false);
  EXPECT_TRUE(ClickGeneralItem(folders, 1, true, never));
  EXPECT_FALSE(ClickGeneralItem(folders, 4, false, never));
  EXPECT_EQ(IniValue(folders, settings::kTypingSettingsIni, u"General", u"StartQuilomSilently"), u"1");
  EXPECT_EQ(IniValue(folders, settings::kTypingSettingsIni, u"General", u"BalloonTipAtStartup"), u"0");
  EXPECT_TRUE(never.questions.empty());
  EXPECT_FALSE(ClickGeneralItem(folders, 5, true, never));
  EXPECT_FALSE(ClickGeneralItem(folders, 0, true, never));
}

TEST(TypingSettings, OnlyYesTicksTheExcelOption) {
  TempFolder temp;
  const auto folders = DataFolders::ForDataRoot(temp / "Sorvin");
  ScriptedPrompter no(false);
  EXPECT_FALSE(ClickGeneralItem(folders, kExcelGeneralItem, true, no));
  EXPECT_EQ(IniValue(folders, settings::kTypingSettingsIni, u"General", u"StartQuilomMinimized"), u"<missing>");
  ASSERT_EQ(no.questions.size(), 1u);
  EXPECT_EQ(no.titles[0], u"Quilom++");
  EXPECT_EQ(no.questions[0], ExcelOptionQuestion());
  EXPECT_NE(no.questions[0].find(u"\r\nImportant Note:\r\nIf you choose to select 'Yes' now"), std::u16string::npos);

  ScriptedPrompter yes(true);
  EXPECT_TRUE(ClickGeneralItem(folders, kExcelGeneralItem, true, yes));
  EXPECT_EQ(IniValue(folders, settings::kTypingSettingsIni, u"General", u"StartQuilomMinimized"), u"1");
  // Unticking needs no confirmation.
  EXPECT_FALSE(ClickGeneralItem(folders, kExcelGeneralItem, false, no));
  EXPECT_EQ(no.questions.size(), 1u);
  EXPECT_EQ(IniValue(folders, settings::kTypingSettingsIni, u"General", u"StartQuilomMinimized"), u"0");
}

TEST(TypingSettings2, SetKeysListSeparatorsAndNameValueRows) {
  const auto rows = ParseSetKeys(u"------ Scheme ------\r\nClassic scheme=1\r\n\r\n  Extended scheme = 0 \r\nBare");
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_TRUE(rows[0].separator);
  EXPECT_EQ(rows[0].DisplayText(), u"------ Scheme ------");
  EXPECT_EQ(rows[1].DisplayText(), u"Classic scheme = 1");
  EXPECT_TRUE(rows[1].Recommended());
  EXPECT_EQ(rows[2], (SetKeyRow{false, u"Extended scheme", u"0"}));
  EXPECT_FALSE(rows[2].Recommended());
  EXPECT_EQ(rows[3].DisplayText(), u"Bare = ");

  EXPECT_EQ(ReadSetKeys(DataFolders::ForDataRoot(SourceDataRoot())).size(), 3u);
}

TEST(TypingSettings2, SchemesExcludeEachOtherAndUntickingARecommendedRowWarns) {
  TempFolder temp;
  const auto folders = DataFolders::ForDataRoot(temp / "Sorvin");
  const SetKeyRow classic{false, std::u16string(kClassicScheme), u"1"};
  const SetKeyRow extended{false, std::u16string(kExtendedScheme), u"0"};
  EXPECT_TRUE(RowTicked(folders, classic));

  EXPECT_EQ(ClickSetKeyRow(folders, classic, false), kRecommendedOptionWarning);
  EXPECT_FALSE(RowTicked(folders, classic));
  EXPECT_TRUE(RowTicked(folders, extended));
  EXPECT_TRUE(LoadTypingSettings(folders).extendedScheme);

  EXPECT_EQ(ClickSetKeyRow(folders, classic, true), u"");
  EXPECT_FALSE(RowTicked(folders, extended));
  EXPECT_EQ(ClickSetKeyRow(folders, extended, false), u"");
}

TEST(TypingSettings2, RestoreDefaultsPutsTheFactoryCopyBack) {
  TempFolder temp;
  const auto folders = DataFolders::ForDataRoot(temp / "Sorvin");
  const auto inis = folders.sharedDataFolder / "inis";
  std::filesystem::create_directories(inis);
  const auto shippedInis = DataFolders::ForDataRoot(SourceDataRoot()).sharedDataFolder / "inis";
  std::filesystem::copy_file(shippedInis / "qm-settings-2.replica", inis / "qm-settings-2.replica");
  const std::string replicaBytes = testing::ReadBytes(inis / "qm-settings-2.replica");

  ClickSetKeyRow(folders, {false, std::u16string(kExtendedScheme), u"0"}, true);
  ASSERT_TRUE(ReadSettings2Tick(folders, kExtendedScheme, false));
  EXPECT_TRUE(RestoreSettings2Defaults(folders));
  EXPECT_FALSE(ReadSettings2Tick(folders, kExtendedScheme, true));
  EXPECT_TRUE(ReadSettings2Tick(folders, kClassicScheme, false));
  EXPECT_EQ(testing::ReadBytes(inis / "qm-settings-2.replica"), replicaBytes);

  testing::ScopedRecordingReporter reports;
  std::filesystem::remove(inis / "qm-settings-2.replica");
  const std::string before = testing::ReadBytes(inis / "qm-settings-2.ini");
  EXPECT_FALSE(RestoreSettings2Defaults(folders));
  EXPECT_TRUE(reports->HasTag(u"qmset2 - RsD"));
  EXPECT_EQ(testing::ReadBytes(inis / "qm-settings-2.ini"), before);
}

TEST(TypingSettingItems, EachCategoryShowsTheKeysOfItsOwnSections) {
  std::set<std::u16string> keys;
  for (const int row : {0, 2, 4}) {
    const auto sections = SectionsOfCategory(row);
    const auto items = ItemsOfCategory(row);
    ASSERT_FALSE(items.empty()) << row;
    for (const auto& item : items) {
      EXPECT_TRUE(item.key.section == sections[0] || item.key.section == sections[1]) << row;
      keys.insert(std::u16string(item.key.section) + u"/" + std::u16string(item.key.key));
    }
  }
  // Every key of the file has exactly one box, and the separators show none.
  EXPECT_EQ(keys.size(), TypingSettingItems().size());
  EXPECT_EQ(keys.size(), 10u);
  EXPECT_TRUE(ItemsOfCategory(1).empty());
  EXPECT_TRUE(ItemsOfCategory(3).empty());
  EXPECT_TRUE(ItemsOfCategory(5).empty());
}

TEST(TypingSettingItems, BoxesShowWhatWasWrittenAndTheDefaultsOtherwise) {
  TempFolder temp;
  const auto folders = DataFolders::ForDataRoot(temp / "Sorvin");
  for (const auto& item : TypingSettingItems()) {
    EXPECT_EQ(ReadTypingSetting(folders, item.key), item.key.fallback == u"1");
  }
  ASSERT_TRUE(WriteTypingSetting(folders, kClassicKey, false));
  ASSERT_TRUE(WriteTypingSetting(folders, kExcludeHKey, true));
  EXPECT_FALSE(ReadTypingSetting(folders, kClassicKey));
  EXPECT_TRUE(ReadTypingSetting(folders, kExcludeHKey));
  EXPECT_FALSE(ReadTypingSetting(folders, kChChKey));
}

}  // namespace
}  // namespace quilom::translit
