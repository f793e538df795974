#include <gtest/gtest.h>

#include <charconv>
#include <string>
#include <vector>

#include "settings/data_folders.hpp"
#include "settings/ini_file.hpp"
#include "settings/settings_choices.hpp"
#include "settings/settings_list.hpp"
#include "settings/text_file.hpp"
#include "settings/tool_settings.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"

namespace quilom::settings {
namespace {

using testing::ReadBytes;
using testing::ScopedRecordingReporter;
using testing::SourceDataRoot;

const DataFolders kFolders = DataFolders::ForDataRoot(SourceDataRoot());

bool IsInteger(std::u16string_view value) {
  const std::string ascii = text::Utf16ToUtf8(value);
  int number = 0;
  const auto [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), number);
  return error == std::errc() && end == ascii.data() + ascii.size();
}

TEST(ShippedSettings, EveryWindowFindsEachOfItsKeysWithAValue) {
  struct Window {
    SettingsWindow window;
    std::vector<std::u16string> keys;
  };
  const Window windows[] = {
      {SettingsWindow::MainTyping,
       {u"Global Typing", u"Instant Typing", u"Fast Editing", u"Smart Editing", u"CopyPaste Editing",
        u"Include Hotkeys", u"Present Hotkey"}},
      {SettingsWindow::FontsConverter,
       {u"From Index", u"To Index", u"Uni Index", u"NonUni Index", u"IrRiRee Form", u"Plain Text", u"Vowel Signs",
        u"Quotes Format"}},
      {SettingsWindow::UrlNormaliser, {u"Auto Normalize", u"Auto Copy", u"Auto Open"}},
  };
  ScopedRecordingReporter reports;
  for (const Window& w : windows) {
    const auto settings = ToolSettings::For(kFolders, w.window);
    for (const auto& key : w.keys) {
      EXPECT_FALSE(settings.GetToolSetting(key).empty()) << text::Utf16ToUtf8(key);
    }
    EXPECT_EQ(settings.ReadToolSettings(w.keys).size(), w.keys.size());
  }
  const auto converter = ToolSettings::For(kFolders, SettingsWindow::FontsConverter);
  for (const char16_t* key : {u"From Index", u"To Index", u"Uni Index", u"NonUni Index"}) {
    EXPECT_TRUE(IsInteger(converter.GetToolSetting(key))) << text::Utf16ToUtf8(key);
  }
  EXPECT_TRUE(reports->messages.empty());
}

TEST(ShippedSettings, EveryModuleFolderHoldsAUtf16SettingsFileWithATitleAndCrLfOnly) {
  const char16_t* modules[] = {u"Indic Direct Typer",
                               u"Unicode Viewer",
                               u"URL Normalizer",
                               u"Tamil Fonts Converter",
                               u"Sanskrit Tamil Colorizer",
                               u"Auto Transliterator",
                               u"Dual_Screen Transliterator",
                               u"pelandr"};
  for (const char16_t* module : modules) {
    const auto file = kFolders.ModuleDataFolder(module) / "Settings.txt";
    SCOPED_TRACE(file.string());
    const std::string bytes = ReadBytes(file);
    ASSERT_GE(bytes.size(), 4u);
    EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE");
    const std::u16string text = ReadTextFile(file);
    EXPECT_FALSE(text.starts_with(u"`````")) << "line 0 must be a title";
    for (size_t i = 0; i < text.size(); ++i) {
      if (text[i] != u'\n') continue;
      EXPECT_TRUE(i > 0 && text[i - 1] == u'\r') << "bare LF at " << i;
    }
  }
}

TEST(ShippedSettings, PositionalFilesHoldTheirValuesInOrder) {
  ScopedRecordingReporter reports;
  const auto general = ReadSettingsListEntries(kFolders.mainDataFolder / "Settings - General.txt", false);
  ASSERT_EQ(general.size(), 3u);
  for (const auto& value : general) EXPECT_TRUE(IsInteger(value)) << text::Utf16ToUtf8(value);

  const auto floaterKeys = ReadSettingsListEntries(kFolders.mainDataFolder / "Settings - Floater.txt", true);
  const auto floater = ReadSettingsListEntries(kFolders.mainDataFolder / "Settings - Floater.txt", false);
  ASSERT_EQ(floater.size(), 13u);  // nine options, then left, top, width, height
  EXPECT_EQ(floaterKeys.front(), u"`````Follow the Typing");
  EXPECT_EQ(floaterKeys[8], u"`````Start with Quilom++");
  for (size_t i = 0; i < 9; ++i) EXPECT_TRUE(floater[i] == u"0" || floater[i] == u"1");
  for (size_t i = 9; i < 13; ++i) EXPECT_TRUE(IsInteger(floater[i]));

  // Every general setting offers its choices.
  for (const auto& key : ReadSettingsListEntries(kFolders.mainDataFolder / "Settings - General.txt", true)) {
    const std::u16string name = key.substr(5);
    EXPECT_FALSE(ReadSettingsChoices(kFolders.mainDataFolder / "Settings-Choices.txt", name).empty())
        << text::Utf16ToUtf8(name);
  }
  EXPECT_TRUE(reports->messages.empty());
}

TEST(ShippedSettings, TheTypingIniHoldsEveryKeyWithItsFactoryValue) {
  struct Row {
    const char16_t* section;
    const char16_t* key;
    const char16_t* value;
  };
  const Row rows[] = {
      {u"General", u"StartQuilomSilently", u"0"},
      {u"General", u"OnCloseMinimizeQuilom", u"0"},
      {u"General", u"StartQuilomMinimized", u"0"},
      {u"General", u"BalloonTipAtStartup", u"1"},
      {u"Tamil-Phonetics", u"ExcludeH", u"0"},
      {u"Tamil-Phonetics", u"TamilNumeralsConversion", u"0"},
      {u"Tamil-Net99", u"ConsecutiveAgaraUyirmeys", u"1"},
      {u"OtherLangs-Phonetics", u"chCh", u"0"},
      {u"OtherLangs-Phonetics", u"Classic", u"1"},
      {u"OtherLangs-Any", u"UseMyOwnKeyboardLayout", u"0"},
  };
  ScopedRecordingReporter reports;
  const IniSettings ini(kFolders, kTypingSettingsIni);
  for (const Row& row : rows) {
    // A default that differs from the shipped value shows the key was really found.
    EXPECT_EQ(ini.Read(row.section, row.key, u"missing"), row.value) << text::Utf16ToUtf8(row.key);
  }
  const auto inis = kFolders.sharedDataFolder / "inis";
  EXPECT_EQ(ReadBytes(inis / "qm-settings-2.replica"), ReadBytes(inis / "qm-settings-2.ini"));
  const IniSettings second(kFolders, kTypingSettings2Ini);
  EXPECT_NE(second.Read(u"", u"Classic scheme", u"0"), second.Read(u"", u"Extended scheme", u"0"));
  EXPECT_TRUE(reports->messages.empty());
}

}  // namespace
}  // namespace quilom::settings
