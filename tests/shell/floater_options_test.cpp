#include "shell/floater_options.hpp"

#include <gtest/gtest.h>

#include "settings/text_file.hpp"
#include "support/temp_folder.hpp"

namespace quilom::shell {
namespace {

using settings::DataFolders;

std::filesystem::path ShippedFloaterFile() {
  return FloaterSettingsPath(DataFolders::ForDataRoot(testing::SourceDataRoot()));
}

TEST(FloaterSettings, ShippedFileGivesTheDefaults) {
  EXPECT_EQ(ReadFloaterSettings(ShippedFloaterFile()), FloaterSettings{});
  testing::TempFolder temp;
  EXPECT_EQ(ReadFloaterSettings(temp / "none.txt"), FloaterSettings{});
}

TEST(FloaterSettings, OptionsAndPlacementRoundTripButTheHookDoesNot) {
  testing::TempFolder temp;
  const auto file = temp / "Settings - Floater.txt";
  std::filesystem::copy_file(ShippedFloaterFile(), file);
  FloaterSettings changed;
  changed.Set(FloaterOption::FollowTheTyping, true);
  changed.Set(FloaterOption::AlwaysOnTop, false);
  changed.Set(FloaterOption::StartWithQuilom, true);
  changed.left = -1200;  // a monitor left of the main one
  changed.top = 5;
  changed.width = 250;
  changed.height = 600;
  FloaterSettings hooked = changed;
  hooked.Set(FloaterOption::HookTheTypingWindow, true);
  ASSERT_TRUE(WriteFloaterSettings(file, hooked));
  EXPECT_EQ(ReadFloaterSettings(file), changed);

  const auto text = settings::ReadTextFile(file);
  EXPECT_NE(text.find(u"`````Follow the Typing\r\n1\r\n`````Always on Top\r\n0\r\n"), std::u16string::npos);
  EXPECT_NE(text.find(u"`````Left\r\n-1200\r\n`````Top\r\n5\r\n"), std::u16string::npos);
}

TEST(FloaterSettings, UnusableValuesKeepTheirDefaults) {
  testing::TempFolder temp;
  const auto file = temp / "Settings - Floater.txt";
  settings::WriteTextFile(file,
                          u"title\r\n`````a\r\nyes\r\n`````b\r\n0\r\n`````c\r\n1\r\n`````d\r\n\r\n`````e\r\n\r\n"
                          u"`````f\r\n\r\n`````g\r\n\r\n`````h\r\n\r\n`````i\r\n\r\n`````Left\r\n12x\r\n"
                          u"`````Top\r\n-3\r\n`````Width\r\n-40\r\n",
                          3);
  FloaterSettings expected;
  expected.Set(FloaterOption::AlwaysOnTop, false);
  expected.Set(FloaterOption::HideHotkeysInfo, true);
  expected.top = -3;
  EXPECT_EQ(ReadFloaterSettings(file), expected);
}

TEST(FloaterLook, HidingEveryPartShowsWholeNames) {
  FloaterSettings settings;
  settings.Set(FloaterOption::HideLanguages, true);
  settings.Set(FloaterOption::HideFontEncodings, true);
  EXPECT_FALSE(FloaterLookOf(settings).nameColumn);
  settings.Set(FloaterOption::HideKeyboardsInfo, true);
  const auto look = FloaterLookOf(settings);
  EXPECT_TRUE(look.nameColumn && look.hotkeyColumn);
  EXPECT_FALSE(look.languageColumn || look.encodingColumn || look.keyboardColumn);
}

TEST(FloaterHook, HookingDependsOnTheModeAndThePreviousWindow) {
  SelectionState global;
  const auto refused = HookTypingWindow(global, 42, u"Notes");
  EXPECT_EQ(refused.verdict, HookVerdict::NotFocusedMode);
  EXPECT_EQ(refused.message.text,
            u"This option is to be used only when you have chosen 'Enable typing in that application alone' in "
            u"Quilom++'s opening screen.");
  EXPECT_EQ(global.HookedWindow, 0u);

  SelectionState focused;
  focused.FocusedMode = kFocusedOnOneApplication;
  const auto none = HookTypingWindow(focused, 0, u"");
  EXPECT_EQ(none.verdict, HookVerdict::NoWindowToHook);
  EXPECT_EQ(none.message.text, u"Unable to find any suitable window to hook");
  EXPECT_EQ(focused.HookedWindow, 0u);

  const auto hooked = HookTypingWindow(focused, 42, u"Notes - Editor");
  EXPECT_EQ(hooked.verdict, HookVerdict::Hooked);
  EXPECT_EQ(hooked.message.title, u"Typing Window Hooked");
  EXPECT_EQ(hooked.message.text,
            u"Window having the following title has been hooked for your further focused typing: Notes - Editor");
  EXPECT_EQ(focused.HookedWindow, 42u);
  EXPECT_TRUE(focused.oneShotFocus);

  const auto unhooked = UnhookTypingWindow(focused, u"Mail");
  EXPECT_EQ(unhooked.text,
            u"The window in which you were doing focused typing earlier has been unhooked, via the window having the "
            u"following title:\r\nMail");
  EXPECT_EQ(focused.HookedWindow, 0u);
  EXPECT_FALSE(focused.oneShotFocus);
  EXPECT_EQ(UnhookTypingWindow(focused, u"Mail").text, u"");
}

TEST(FloaterHook, AutoFocusReturnsToTheTypingWindow) {
  FloaterSettings settings;
  SelectionState state;
  EXPECT_EQ(AutoFocusTarget(settings, state, 7), 0u);
  settings.Set(FloaterOption::AutoFocusTypingWindow, true);
  EXPECT_EQ(AutoFocusTarget(settings, state, 7), 7u);
  state.HookedWindow = 9;
  EXPECT_EQ(AutoFocusTarget(settings, state, 7), 9u);
}

}  // namespace
}  // namespace quilom::shell
