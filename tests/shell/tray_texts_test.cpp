#include "shell/tray_texts.hpp"

#include <gtest/gtest.h>

#include "shell/language_setting_warning.hpp"
#include "text/strings.hpp"

namespace quilom::shell {
namespace {

TEST(TrayTexts, BalloonsCarryTheirFixedWordsAndTheKeymap) {
  const BalloonText on = TypingOnBalloon(u"Tamil-Unicode-TamilNet99", 2);
  EXPECT_EQ(on.title, u" Typing ON ");
  EXPECT_EQ(on.text, u"Tamil-Unicode-TamilNet99\n(Hotkey Number: 2)\nMouse over the language icon for more info.");

  const BalloonText off = TypingOffBalloon(u"Tamil-Unicode-TamilNet99");
  EXPECT_EQ(off.title, u" Typing OFF");
  EXPECT_EQ(off.text, u"You were typing in the LFK:\nTamil-Unicode-TamilNet99");

  const BalloonText tray = MinimisedToTrayBalloon();
  EXPECT_EQ(tray.title, u"Quilom++ is minimized to tray and running in the background");
  EXPECT_LE(tray.title.size(), kBalloonTitleLimit);
  EXPECT_EQ(tray.text, u"You can view its starting screen again, any time, by just clicking it's tray icon");
}

TEST(TrayTexts, TypingTooltipNamesTheHookingState) {
  EXPECT_EQ(TypingTooltip(HookedWindowKind::Global, u"", u"Alt+F12", u"Tamil-Unicode-PhoneticTransliteration"),
            u"Hooked Window: All windows hooked, Globally\nHotkey: Alt+F12\nLFK: Tamil-Unicode-PhoneticTransliteration");
  EXPECT_EQ(TypingTooltip(HookedWindowKind::None, u"ignored", u"None", u"X"),
            u"Hooked Window: NONE\nHotkey: None\nLFK: X");
  EXPECT_EQ(TypingTooltip(HookedWindowKind::OneWindow, u"Untitled - Notepad", u"F9", u"X"),
            u"Hooked Window: 'Untitled - Notepad'\nHotkey: F9\nLFK: X");
}

TEST(TrayTexts, LongCaptionIsCutWithDotsInsideTheQuotes) {
  const std::u16string caption(300, u'c');
  const auto tip = TypingTooltip(HookedWindowKind::OneWindow, caption, u"Ctrl+Shift+T",
                                 u"Tamil-Unicode-PhoneticTransliteration");
  EXPECT_LE(tip.size(), kTooltipLimit);
  const auto lines = text::Split(tip, u"\n");
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_TRUE(text::StartsWith(lines[0], u"Hooked Window: 'ccc"));
  EXPECT_TRUE(text::EndsWith(lines[0], u"...'"));
  EXPECT_EQ(lines[1], u"Hotkey: Ctrl+Shift+T");
  EXPECT_EQ(lines[2], u"LFK: Tamil-Unicode-PhoneticTransliteration");
}

TEST(TrayTexts, TooltipStaysWithinTheLimitWhateverTheParts) {
  const std::u16string longName(200, u'k');
  for (auto kind : {HookedWindowKind::None, HookedWindowKind::Global, HookedWindowKind::OneWindow}) {
    const auto tip = TypingTooltip(kind, longName, u"Alt+F12", longName);
    EXPECT_LE(tip.size(), kTooltipLimit);
    EXPECT_TRUE(text::EndsWith(tip, u"..."));
  }
  EXPECT_LE(TypingOnBalloon(std::u16string(400, u'k'), 3).text.size(), kBalloonTextLimit);
}

TEST(TrayTexts, CuttingNeverSplitsASurrogatePair) {
  std::u16string text;
  for (int i = 0; i < 100; ++i) text += u"\U0001F600";  // two code units each
  for (std::size_t limit : {std::size_t{6}, std::size_t{7}, std::size_t{127}}) {
    const auto cut = FitText(text, limit);
    EXPECT_LE(cut.size(), limit);
    ASSERT_GE(cut.size(), 4u);
    const char16_t beforeDots = cut[cut.size() - 4];
    EXPECT_FALSE(beforeDots >= 0xD800 && beforeDots <= 0xDBFF) << "limit " << limit;
  }
  EXPECT_EQ(FitText(u"short", 127), u"short");
}

TEST(LanguageSettingWarning, OnlyTheUtf8SystemCodePageWarns) {
  EXPECT_FALSE(LanguageSettingWarning(1252).has_value());
  EXPECT_FALSE(LanguageSettingWarning(932).has_value());
  const auto warning = LanguageSettingWarning(65001);
  ASSERT_TRUE(warning.has_value());
  EXPECT_TRUE(text::StartsWith(*warning,
                               u"IMPORTANT: Quilom+ has detected that possibly one of the settings in your Windows "
                               u"'Language settings' scheme needs to be necessarily UNTICKED, for all the modules of "
                               u"Quilom+ to function smoothly."));
  EXPECT_NE(warning->find(u"help"), std::u16string::npos);
}

}  // namespace
}  // namespace quilom::shell
