#include "shell/hotkey_number.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "shell/hooked_key_processor.hpp"
#include "shell_fakes.hpp"

namespace quilom::shell {
namespace {

using Kind = DigitOutcome::Kind;

// The key processor wired to the selector as the main window wires them: hotkey keys and
// digits go through ProcessHookedKey, and each selection is recorded.
struct Wiring {
  TypingFrontState state;
  testing::RecordingEngine engine;
  HookedKeyProcessor processor{state, engine};
  HotkeyNumberSelector selector;
  std::vector<DigitOutcome> outcomes;
  int keymapCount = 20;
  bool globalOn = true;

  Wiring() {
    state.hotkeys.PrimaryHotkeyVk = 0xA4;
    state.hotkeys.SecondaryHotkeyVk1 = 0x7B;
    processor.SetHotkeyDigitHandler([this](int vk) {
      const DigitOutcome outcome = selector.OnDigit(state.keys, vk, keymapCount, globalOn);
      if (outcome.kind != Kind::Nothing) outcomes.push_back(outcome);
    });
  }
  void Keys(std::initializer_list<int> keys) {
    for (int key : keys) processor.ProcessHookedKey(0, key);
  }
};

TEST(HotkeyNumber, EachDigitExtendsTheNumberAndSelectsAtOnce) {
  Wiring w;
  w.Keys({0x7B, '1', '2'});
  ASSERT_EQ(w.outcomes.size(), 2u);
  EXPECT_EQ(w.outcomes[0].keymapIndex, 1);
  EXPECT_EQ(w.outcomes[1].keymapIndex, 12);
  EXPECT_TRUE(w.engine.log.empty());  // digits after a hotkey never reach the engine
}

TEST(HotkeyNumber, NewHotkeyPressStartsANewNumber) {
  Wiring w;
  w.Keys({0x7B, '1', 0xA4, '2'});
  ASSERT_EQ(w.outcomes.size(), 2u);
  EXPECT_EQ(w.outcomes[1].keymapIndex, 2);
  EXPECT_EQ(w.selector.PendingNumber(), u"2");
}

TEST(HotkeyNumber, NumbersBeyondTheKeymapCountAreIgnored) {
  Wiring w;
  w.keymapCount = 11;
  w.Keys({0x7B, '1', '2'});
  ASSERT_EQ(w.outcomes.size(), 1u);
  EXPECT_EQ(w.outcomes[0].keymapIndex, 1);
  w.outcomes.clear();
  w.keymapCount = 0;
  w.Keys({0x7B, '3'});
  EXPECT_TRUE(w.outcomes.empty());
}

TEST(HotkeyNumber, NumericPadDigitsCountLikeTopRowDigits) {
  Wiring w;
  w.Keys({0x7B, 0x61, 0x65});
  ASSERT_EQ(w.outcomes.size(), 2u);
  EXPECT_EQ(w.outcomes[1].keymapIndex, 15);
}

TEST(HotkeyNumber, SmallNumbersGoThroughTheNineEntryTable) {
  Wiring w;
  w.selector.SetTable({9, 8, 7, 6, 5, 4, 3, 2, 1});
  w.Keys({0x7B, '2'});
  ASSERT_EQ(w.outcomes.size(), 1u);
  EXPECT_EQ(w.outcomes[0].keymapIndex, 8);
  w.Keys({'0'});  // "20" is past the table: the index itself
  ASSERT_EQ(w.outcomes.size(), 2u);
  EXPECT_EQ(w.outcomes[1].keymapIndex, 20);
}

TEST(HotkeyNumber, LeadingZeroAppliesTheFloaterKeymapOnlyWhileTypingIsOn) {
  Wiring w;
  w.Keys({0x7B, '0'});
  ASSERT_EQ(w.outcomes.size(), 1u);
  EXPECT_EQ(w.outcomes[0].kind, Kind::ApplyFloaterKeymap);
  EXPECT_TRUE(w.selector.PendingNumber().empty());

  w.outcomes.clear();
  w.globalOn = false;
  w.Keys({0x7B, '0'});
  EXPECT_TRUE(w.outcomes.empty());
}

TEST(HotkeyNumber, ZeroAfterADigitIsPartOfTheNumber) {
  Wiring w;
  w.Keys({0x7B, '1', '0'});
  ASSERT_EQ(w.outcomes.size(), 2u);
  EXPECT_EQ(w.outcomes[1].kind, Kind::SelectIndex);
  EXPECT_EQ(w.outcomes[1].keymapIndex, 10);
}

TEST(HotkeyNumber, ShiftedDigitAndLettersSelectNothing) {
  Wiring w;
  w.processor.ProcessHookedKey(0, 0x7B);
  w.processor.ProcessHookedKey(1, '3');
  EXPECT_TRUE(w.outcomes.empty());
  HookKeyState keys;
  EXPECT_EQ(w.selector.OnDigit(keys, 'A', 20, true).kind, Kind::Nothing);
}

TEST(HotkeyNumber, VeryLongNumbersStopGrowing) {
  HotkeyNumberSelector selector;
  HookKeyState keys;
  for (int i = 0; i < 20; ++i) selector.OnDigit(keys, '9', 1000000, true);
  EXPECT_LE(selector.PendingNumber().size(), 6u);
}

}  // namespace
}  // namespace quilom::shell
