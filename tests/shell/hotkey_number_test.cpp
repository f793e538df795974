#include "shell/hotkey_number.hpp"

#include <gtest/gtest.h>

#include <string_view>
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
  testing::FakeClock clock;
  HookedKeyProcessor processor{state, engine, &clock};
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
  // Types `text` as keys `msBetweenKeys` apart: letters by their key, capitals with Shift.
  void Type(std::u16string_view text, std::uint32_t msBetweenKeys) {
    for (const char16_t ch : text) {
      clock.now += msBetweenKeys;
      const bool upper = ch >= u'A' && ch <= u'Z';
      const int vk = (ch >= u'a' && ch <= u'z') ? ch - u'a' + 'A' : ch;
      processor.ProcessHookedKey(upper ? 1 : 0, vk);
    }
  }
  std::vector<int> Selected() const {
    std::vector<int> selected;
    for (const auto& outcome : outcomes) selected.push_back(outcome.keymapIndex);
    return selected;
  }
};

// The number typed after the hotkey ends at a pause or at the first key that is not a digit;
// every key after its end is text.
struct TimedRow {
  const char* name;
  std::u16string before;  // typed 150 ms apart after the hotkey
  std::uint32_t pauseMs;  // then this pause (at least 120 ms)
  std::u16string after;   // then these keys, 120 ms apart
  std::vector<int> selected;
  std::u16string typed;
};

TEST(HotkeyNumber, TheNumberEndsAtAPauseOrAtAKeyThatIsNoDigit) {
  const TimedRow rows[] = {
      {"two digits typed quickly are one number", u"1", 300, u"2", {1, 12}, u""},
      {"a digit after the pause is text", u"1", 1200, u"2", {1}, u"2"},
      {"one then 25 vaNakkam", u"1", 1500, u"25 vaNakkam", {1}, u"25 vaNakkam"},
      {"just inside the pause still counts", u"1", 1000, u"2", {1, 12}, u""},
      {"a letter ends the number and is typed", u"1", 200, u"a25", {1}, u"a25"},
      {"a space ends the number and is typed", u"12", 200, u" 3", {1, 12}, u" 3"},
      {"the first digit too must come within the pause", u"", 1500, u"7", {}, u"7"},
  };
  for (const TimedRow& row : rows) {
    SCOPED_TRACE(row.name);
    Wiring w;
    w.Keys({0xA4, 0x7B});
    w.Type(row.before, 150);
    w.clock.now += row.pauseMs - 120;
    w.Type(row.after, 120);
    EXPECT_EQ(w.Selected(), row.selected);
    EXPECT_EQ(w.engine.log, row.typed);
  }
}

TEST(HotkeyNumber, APauseBeforeTheHotkeyDoesNotEndIt) {
  Wiring w;
  w.clock.now += 60000;
  w.Keys({0x7B});
  w.Type(u"3", 200);
  EXPECT_EQ(w.Selected(), std::vector<int>{3});
  EXPECT_EQ(w.engine.log, u"");
}

TEST(HotkeyNumber, WithoutAClockTheNumberNeverTimesOut) {
  TypingFrontState state;
  state.hotkeys.SecondaryHotkeyVk1 = 0x7B;
  testing::RecordingEngine engine;
  HookedKeyProcessor processor{state, engine};
  int digits = 0;
  processor.SetHotkeyDigitHandler([&](int) { ++digits; });
  processor.ProcessHookedKey(0, 0x7B);
  EXPECT_FALSE(processor.EndPausedHotkeyNumber());
  processor.ProcessHookedKey(0, '4');
  EXPECT_EQ(digits, 1);
}

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
