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

// Keys go through ProcessHookedKey; 0x7B (F12) and 0xA4 (left Alt) are the hotkey keys.
struct SequenceRow {
  const char* name;
  std::vector<int> keys;
  int keymapCount;
  std::vector<int> selected;  // keymap indexes chosen, in order
};

TEST(HotkeyNumber, DigitSequencesSelectKeymaps) {
  const SequenceRow rows[] = {
      {"each digit selects at once", {0x7B, '1', '2'}, 20, {1, 12}},
      {"a new hotkey press starts a new number", {0x7B, '1', 0xA4, '2'}, 20, {1, 2}},
      {"numbers past the count are ignored", {0x7B, '1', '2'}, 11, {1}},
      {"no keymaps, nothing selected", {0x7B, '3'}, 0, {}},
      {"numeric pad digits count too", {0x7B, 0x61, 0x65}, 20, {1, 15}},
      {"zero after a digit is part of the number", {0x7B, '1', '0'}, 20, {1, 10}},
      {"a letter ends the sequence", {0x7B, 'A', '2'}, 20, {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Wiring w;
    w.keymapCount = row.keymapCount;
    for (int key : row.keys) w.processor.ProcessHookedKey(0, key);
    std::vector<int> selected;
    for (const auto& outcome : w.outcomes) {
      EXPECT_EQ(outcome.kind, Kind::SelectIndex);
      selected.push_back(outcome.keymapIndex);
    }
    EXPECT_EQ(selected, row.selected);
  }
}

TEST(HotkeyNumber, SmallNumbersGoThroughTheNineEntryTable) {
  Wiring w;
  w.selector.SetTable({9, 8, 7, 6, 5, 4, 3, 2, 1});
  w.Keys({0x7B, '2', '0'});  // "2" through the table, "20" past it: the index itself
  ASSERT_EQ(w.outcomes.size(), 2u);
  EXPECT_EQ(w.outcomes[0].keymapIndex, 8);
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

TEST(HotkeyNumber, ShiftedDigitSelectsNothing) {
  Wiring w;
  w.processor.ProcessHookedKey(0, 0x7B);
  w.processor.ProcessHookedKey(1, '3');
  EXPECT_TRUE(w.outcomes.empty());
}

}  // namespace
}  // namespace quilom::shell
