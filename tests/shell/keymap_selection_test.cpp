#include "shell/keymap_selection.hpp"

#include <gtest/gtest.h>

#include "shell/typing_toggle.hpp"

namespace quilom::shell {
namespace {

KeymapRequest Pick(std::u16string keymap, int number = 1) {
  KeymapRequest request;
  request.SelectedKeymap = std::move(keymap);
  request.hotkeyNumber = number;
  return request;
}

// Carries out a selection the way the Win32 layer does when every hook call succeeds.
SelectionActions Carry(KeymapSelector& selector, const KeymapRequest& request, ForegroundInfo foreground = {}) {
  SelectionActions actions = selector.SelectKeymap(request, foreground);
  bool installed = selector.State().globalHookInstalled;
  if (actions.removeHooks) installed = false;
  if (actions.installHooks || actions.reinstallHooks) installed = true;
  selector.FinishSelection(installed);
  return actions;
}

TEST(KeymapSelection, SameKeymapTogglesTypingOffAndOnAgain) {
  KeymapSelector selector;
  const auto on = Carry(selector, Pick(u"Tamil-Unicode-PhoneticTransliteration", 1));
  EXPECT_TRUE(on.installHooks);
  EXPECT_EQ(on.keymapToApply, u"Tamil-Unicode-PhoneticTransliteration");
  EXPECT_EQ(on.balloon, SelectionBalloon::TypingOn);
  EXPECT_TRUE(selector.State().globalHookInstalled);

  const auto off = Carry(selector, Pick(u"Tamil-Unicode-PhoneticTransliteration", 1));
  EXPECT_TRUE(off.removeHooks);
  EXPECT_FALSE(off.installHooks);
  EXPECT_TRUE(off.keymapToApply.empty());
  EXPECT_EQ(off.balloon, SelectionBalloon::TypingOff);
  EXPECT_EQ(off.balloonKeymap, u"Tamil-Unicode-PhoneticTransliteration");
  EXPECT_FALSE(selector.State().globalHookInstalled);

  const auto again = Carry(selector, Pick(u"Tamil-Unicode-PhoneticTransliteration", 1));
  EXPECT_TRUE(again.installHooks);
  EXPECT_EQ(again.balloon, SelectionBalloon::TypingOn);
}

TEST(KeymapSelection, OtherKeymapWhileOnSwitchesWithoutReinstalling) {
  KeymapSelector selector;
  Carry(selector, Pick(u"Tamil-Unicode-TamilNet99", 2));
  const auto next = Carry(selector, Pick(u"Hindi-Unicode-PhoneticTransliteration", 12));
  EXPECT_FALSE(next.installHooks);
  EXPECT_FALSE(next.removeHooks);
  EXPECT_EQ(next.keymapToApply, u"Hindi-Unicode-PhoneticTransliteration");
  EXPECT_EQ(next.balloon, SelectionBalloon::TypingOn);
  EXPECT_EQ(next.balloonHotkeyNumber, 12);
  EXPECT_EQ(selector.State().ActiveKeymap, u"Hindi-Unicode-PhoneticTransliteration");
}

TEST(KeymapSelection, FailedInstallLeavesTypingOffAndActiveKeymapUnchanged) {
  KeymapSelector selector;
  Carry(selector, Pick(u"A"));
  Carry(selector, Pick(u"A"));  // off, A still remembered
  const auto actions = selector.SelectKeymap(Pick(u"B"), {});
  ASSERT_TRUE(actions.installHooks);
  selector.FinishSelection(false);
  EXPECT_FALSE(selector.State().globalHookInstalled);
  EXPECT_EQ(selector.State().ActiveKeymap, u"A");
  // Since typing is off, choosing B again tries to turn it on rather than off.
  EXPECT_TRUE(Carry(selector, Pick(u"B")).installHooks);
}

TEST(KeymapSelection, RequestDuringARunningSelectionIsIgnored) {
  KeymapSelector selector;
  const auto first = selector.SelectKeymap(Pick(u"A"), {});
  EXPECT_TRUE(selector.State().SelectionBusy);
  const auto second = selector.SelectKeymap(Pick(u"B"), {});
  EXPECT_TRUE(second.ignoredWhileBusy);
  EXPECT_FALSE(second.installHooks);
  EXPECT_TRUE(second.keymapToApply.empty());
  selector.FinishSelection(true);
  EXPECT_FALSE(selector.State().SelectionBusy);
  EXPECT_EQ(selector.State().ActiveKeymap, u"A");
  EXPECT_FALSE(selector.SelectKeymap(Pick(u"B"), {}).ignoredWhileBusy);
  (void)first;
}

TEST(KeymapSelection, FocusedModeReinstallsWhenForegroundThreadDiffers) {
  KeymapSelector selector;
  selector.State().FocusedMode = kFocusedOnOneApplication;
  selector.State().HookedWindow = 0x1234;
  selector.State().oneShotFocus = true;
  selector.State().globalHookInstalled = true;
  selector.State().ActiveKeymap = u"A";

  const auto moved = Carry(selector, Pick(u"A"), ForegroundInfo{0x999, 7, 8});
  EXPECT_TRUE(moved.reinstallHooks);
  EXPECT_FALSE(moved.removeHooks);  // the same keymap does not turn focused typing off
  EXPECT_EQ(moved.keymapToApply, u"A");
  EXPECT_FALSE(selector.State().oneShotFocus);

  const auto same = Carry(selector, Pick(u"A"), ForegroundInfo{0x1234, 8, 8});
  EXPECT_FALSE(same.reinstallHooks);
  EXPECT_FALSE(same.installHooks);
  EXPECT_EQ(same.keymapToApply, u"A");
}

TEST(KeymapSelection, FocusedModeWithoutHookedWindowInstallsOnlyWhenMissing) {
  KeymapSelector selector;
  selector.State().FocusedMode = kFocusedOnOneApplication;
  const auto first = Carry(selector, Pick(u"A"), ForegroundInfo{0x5, 1, 0});
  EXPECT_TRUE(first.installHooks);
  EXPECT_FALSE(first.reinstallHooks);
  const auto second = Carry(selector, Pick(u"B"), ForegroundInfo{0x5, 2, 0});
  EXPECT_FALSE(second.installHooks);
  EXPECT_FALSE(second.reinstallHooks);
}

TEST(KeymapSelection, ReturnFocusAndGridRowFollowTheRequest) {
  KeymapSelector selector;
  KeymapRequest request = Pick(u"A");
  request.returnFocus = true;
  request.showInGrid = true;
  const auto actions = Carry(selector, request, ForegroundInfo{0xABC, 3, 0});
  EXPECT_EQ(actions.giveFocusTo, 0xABCu);
  EXPECT_TRUE(actions.showRowInGrid);

  const auto plain = Carry(selector, Pick(u"B"), ForegroundInfo{0xABC, 3, 0});
  EXPECT_EQ(plain.giveFocusTo, 0u);
  EXPECT_FALSE(plain.showRowInGrid);
}

TEST(TypingToggle, CaptionFollowsTheHookThroughAToggleCycle) {
  KeymapSelector selector;
  for (int round = 0; round < 3; ++round) {
    Carry(selector, Pick(u"A"));
    EXPECT_EQ(StartStopCaption(selector.State().globalHookInstalled), u"'Stop' Global Typing");
    Carry(selector, Pick(u"A"));
    EXPECT_EQ(StartStopCaption(selector.State().globalHookInstalled), u"'Start' Global Typing");
  }
}

}  // namespace
}  // namespace quilom::shell
