#include "shell/main_window_options.hpp"

#include <gtest/gtest.h>

#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"

namespace quilom::shell {
namespace {

using testing::ReadBytes;
using testing::TempFolder;
using testing::Utf16LeWithMark;
using testing::WriteBytes;

constexpr std::u16string_view kShipped =
    u"Quilom++ - Indic Direct Typer settings\r\n"
    u"`````Global Typing\r\n1\r\n`````Instant Typing\r\n0\r\n`````Fast Editing\r\n0\r\n"
    u"`````Smart Editing\r\n0\r\n`````CopyPaste Editing\r\n0\r\n`````Include Hotkeys\r\n1\r\n"
    u"`````Present Hotkey\r\nAlt+F12\r\n";

class MainWindowOptionsTest : public ::testing::Test {
 protected:
  void SetUp() override { WriteBytes(File(), Utf16LeWithMark(kShipped)); }
  std::filesystem::path File() const { return folder_ / "Settings.txt"; }
  MainWindowOptions Fresh() const {
    MainWindowOptions options(settings::ToolSettings(folder_.path(), u"DT - LdS", u"DT - WrS"));
    options.Load();
    return options;
  }
  std::u16string Stored(std::u16string_view key) const {
    return settings::ToolSettings(folder_.path(), u"DT - LdS", u"DT - WrS").GetToolSetting(key);
  }

  TempFolder folder_;
};

TEST_F(MainWindowOptionsTest, ShippedFileGivesGlobalTypingWithAltF12) {
  const MainOptions loaded = Fresh().Options();
  EXPECT_EQ(loaded, MainOptions{});
}

TEST_F(MainWindowOptionsTest, EveryBoxIsStoredAtItsClickAndRestoredByTheNextLoad) {
  MainWindowOptions options = Fresh();
  options.ClickBox(OptionBox::FastEditing, true);
  options.ClickBox(OptionBox::SmartEditing, true);
  options.ClickBox(OptionBox::CopyPasteEditing, true);
  options.ClickBox(OptionBox::IncludeHotkeys, false);
  options.ClickBox(OptionBox::InstantTyping, true);
  options.StoreHotkey(u"Ctrl+Shift+T");

  const MainOptions restored = Fresh().Options();
  EXPECT_EQ(restored.FastEditing, 1);
  EXPECT_TRUE(restored.smartEditing);
  EXPECT_TRUE(restored.copyPasteEditing);
  EXPECT_FALSE(restored.includeHotkeys);
  EXPECT_TRUE(restored.instantTyping);
  EXPECT_EQ(restored.presentHotkey, u"Ctrl+Shift+T");
  // Saves are UTF-16LE with mark, whatever the file was before.
  EXPECT_EQ(ReadBytes(File()).substr(0, 2), std::string("\xFF\xFE"));
}

TEST_F(MainWindowOptionsTest, EditingChoicesFollowTheBoxes) {
  MainWindowOptions options = Fresh();
  EXPECT_EQ(options.Editing(), EditingChoices{});
  options.ClickBox(OptionBox::FastEditing, true);
  EXPECT_TRUE(options.Editing().fastEditing);
  EXPECT_FALSE(options.Editing().smartEditing);
  options.ClickBox(OptionBox::SmartEditing, true);
  options.ClickBox(OptionBox::IncludeHotkeys, false);
  const EditingChoices restored = Fresh().Editing();
  EXPECT_TRUE(restored.fastEditing);
  EXPECT_TRUE(restored.smartEditing);
  EXPECT_FALSE(restored.includeHotkeys);
}

TEST_F(MainWindowOptionsTest, OneApplicationClearsInstantTypingAndStopsGlobalTypingFirst) {
  MainWindowOptions options = Fresh();
  options.ClickBox(OptionBox::InstantTyping, true);
  const OptionEffects effects = options.ClickHookingType(kFocusedOnOneApplication, true);
  EXPECT_TRUE(effects.stopGlobalTypingFirst);
  EXPECT_TRUE(effects.clearHookedWindow);
  EXPECT_TRUE(effects.refreshGrid);
  EXPECT_EQ(options.Options().FocusedMode, kFocusedOnOneApplication);
  EXPECT_FALSE(options.Options().instantTyping);
  EXPECT_EQ(Stored(kInstantTypingKey), u"0");
  EXPECT_EQ(Stored(kGlobalTypingKey), u"0");

  // Already focused, or typing off: nothing to stop.
  EXPECT_FALSE(options.ClickHookingType(kFocusedOnOneApplication, true).stopGlobalTypingFirst);
  MainWindowOptions idle = Fresh();
  EXPECT_FALSE(idle.ClickHookingType(kFocusedOnOneApplication, false).stopGlobalTypingFirst);
}

TEST_F(MainWindowOptionsTest, InstantTypingSwitchesFocusedModeBackToAllApplications) {
  MainWindowOptions options = Fresh();
  options.ClickHookingType(kFocusedOnOneApplication, false);
  const OptionEffects effects = options.ClickBox(OptionBox::InstantTyping, true);
  EXPECT_EQ(options.Options().FocusedMode, kTypingInAllApplications);
  EXPECT_TRUE(effects.clearHookedWindow);
  EXPECT_EQ(Stored(kGlobalTypingKey), u"1");
  EXPECT_EQ(Stored(kInstantTypingKey), u"1");
  // Unchecking it leaves the mode alone.
  options.ClickBox(OptionBox::InstantTyping, false);
  EXPECT_EQ(options.Options().FocusedMode, kTypingInAllApplications);
}

TEST_F(MainWindowOptionsTest, IncludeHotkeysClickIsIgnoredWhileMarked) {
  MainWindowOptions options = Fresh();
  options.SetIgnoreMarker(true);
  options.ClickBox(OptionBox::IncludeHotkeys, false);
  EXPECT_TRUE(options.Options().includeHotkeys);
  EXPECT_EQ(Stored(kIncludeHotkeysKey), u"1");
  options.SetIgnoreMarker(false);
  options.ClickBox(OptionBox::IncludeHotkeys, false);
  EXPECT_EQ(Stored(kIncludeHotkeysKey), u"0");
}

TEST_F(MainWindowOptionsTest, HandEditedFileCannotHaveInstantTypingInFocusedMode) {
  WriteBytes(File(), Utf16LeWithMark(u"t\r\n`````Global Typing\r\n0\r\n`````Instant Typing\r\n1\r\n"));
  const MainOptions loaded = Fresh().Options();
  EXPECT_EQ(loaded.FocusedMode, kFocusedOnOneApplication);
  EXPECT_FALSE(loaded.instantTyping);
  // Keys that are missing keep their defaults.
  EXPECT_EQ(loaded.presentHotkey, kDefaultHotkey);
}

TEST_F(MainWindowOptionsTest, FailedSaveKeepsTheOptionForThisRun) {
  testing::ScopedRecordingReporter reporter;
  std::filesystem::remove(File());
  MainWindowOptions options(settings::ToolSettings(folder_.path(), u"DT - LdS", u"DT - WrS"));
  options.Load();
  options.ClickBox(OptionBox::SmartEditing, true);
  EXPECT_TRUE(options.Options().smartEditing);
  EXPECT_FALSE(std::filesystem::exists(File()));
  EXPECT_FALSE(reporter->messages.empty());
}

}  // namespace
}  // namespace quilom::shell
