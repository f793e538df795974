#include "shell/hook_pipeline.hpp"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "shell/key_classes.hpp"
#include "shell_fakes.hpp"

namespace quilom::shell {
namespace {

using testing::FakeClock;
using testing::FakeKeys;
using testing::RecordingEngine;

constexpr int kPrimary = 0xA3;    // right Ctrl
constexpr int kSecondary = 0x7B;  // F12

KeyEvent Down(int vk, std::uint32_t flags = 0) { return {kWmKeyDown, static_cast<std::uint32_t>(vk), flags, 0}; }
KeyEvent SysDown(int vk) { return {kWmSysKeyDown, static_cast<std::uint32_t>(vk), 0x20, 0}; }
KeyEvent Up(int vk, std::uint32_t flags = kFlagUp) { return {kWmKeyUp, static_cast<std::uint32_t>(vk), flags, 0}; }

std::vector<HookedKeyCall> CallsOf(const HookDecision& decision) {
  return {decision.calls.begin(), decision.calls.begin() + decision.callCount};
}

class HookPipelineTest : public ::testing::Test {
 protected:
  HookPipelineTest() { state.hotkeys = {kPrimary, kSecondary, 0}; }

  void Hold(std::initializer_list<int> keys) { held.down = keys; }
  void Click() { pipeline.OnMouse(kWmLButtonUp); }

  TypingFrontState state;
  RecordingEngine engine;
  FakeKeys held;
  FakeClock clock;
  HookedKeyProcessor processor{state, engine, &clock};
  HookPipeline pipeline{state, processor, held, clock};
};

struct NormalRow {
  const char* name;
  KeyEvent event;
  std::vector<int> held;
  std::vector<HookedKeyCall> calls;
  bool swallow;
};

class NormalModeTable : public HookPipelineTest, public ::testing::WithParamInterface<NormalRow> {};

TEST_P(NormalModeTable, DecidesCallsAndVerdict) {
  const NormalRow& row = GetParam();
  held.down = {row.held.begin(), row.held.end()};
  const HookDecision decision = pipeline.DecideGlobal(row.event);
  EXPECT_EQ(CallsOf(decision), row.calls);
  EXPECT_EQ(decision.swallow, row.swallow);
}

INSTANTIATE_TEST_SUITE_P(
    HookDecision, NormalModeTable,
    ::testing::Values(NormalRow{"Letter", Down('K'), {}, {{0, 'K'}}, true},
                      NormalRow{"ShiftedLetter", Down('A'), {kVkShift}, {{1, 'A'}}, true},
                      NormalRow{"Space", Down(' '), {}, {{0, ' '}}, true},
                      NormalRow{"Punctuation", Down(0xBA), {}, {{0, 0xBA}}, true},
                      NormalRow{"Digit", Down('7'), {kVkShift}, {{1, '7'}}, true},
                      NormalRow{"ShiftKeyItselfPasses", Down(0xA0), {}, {}, false},
                      NormalRow{"PrimaryHotkeyIsHandedOverAndPasses", Down(kPrimary), {}, {{0, kPrimary}}, false},
                      NormalRow{"SecondaryHotkeyIsSwallowed", Down(kSecondary), {}, {{0, kSecondary}}, true},
                      NormalRow{"NumpadDigitIsSwallowed", Down(0x63), {}, {{0, 0x63}}, true},
                      NormalRow{"TabBreaksAndPasses", Down(kVkTab), {}, {{0, kVkTab}}, false},
                      NormalRow{"EnterBreaksAndPasses", Down(kVkReturn), {}, {{0, kVkReturn}}, false},
                      NormalRow{"ArrowResetsAndPasses", Down(0x25), {}, {{0, kResetSignal}}, false},
                      NormalRow{"BackspaceDownResetsAndPasses", Down(kVkBack), {}, {{0, kResetSignal}}, false},
                      NormalRow{"CtrlCPassesUntouched", Down('C'), {kVkControl}, {}, false},
                      NormalRow{"AltFPassesUntouched", SysDown('F'), {kVkMenu}, {}, false},
                      NormalRow{"WinEPassesUntouched", Down('E'), {kVkLWin}, {}, false},
                      NormalRow{"CtrlTabNotifiesAndPasses", Down(kVkTab), {kVkControl}, {{0, kVkTab}}, false},
                      NormalRow{"CtrlF5ResetsAndPasses", Down(0x74), {kVkControl}, {{0, kResetSignal}}, false},
                      NormalRow{"InjectedKeyDownPassesUntouched", Down('K', kFlagInjected), {}, {}, false},
                      // Injected Unicode key-ups arrive without the up flag; the message decides.
                      NormalRow{"InjectedUnicodeKeyUpPassesUntouched", Up(0xE7, kFlagInjected), {}, {}, false},
                      NormalRow{
                          "BackspaceUpWithUpFlagOnlyResets", Up(kVkBack, kFlagUp), {}, {{0, kResetSignal}}, false},
                      NormalRow{"BackspaceUpWithOtherFlagsDoesNot", Up(kVkBack, kFlagUp | 0x1), {}, {}, false},
                      NormalRow{"UnrelatedKeyUpPasses", Up(0x25), {}, {}, false}),
    [](const ::testing::TestParamInfo<NormalRow>& info) { return info.param.name; });

TEST_F(HookPipelineTest, WithAnEditingChoiceBackspaceReachesBothTheApplicationAndTheEngine) {
  for (const auto& [smart, fast] : {std::pair{true, false}, std::pair{false, true}}) {
    state.editing.smartEditing = smart;
    state.editing.fastEditing = fast;
    const HookDecision down = pipeline.DecideGlobal(Down(kVkBack));
    EXPECT_EQ(CallsOf(down), (std::vector<HookedKeyCall>{{0, kVkBack}}));
    EXPECT_FALSE(down.swallow) << "the application erases the character itself";
    const HookDecision up = pipeline.DecideGlobal(Up(kVkBack));
    EXPECT_EQ(up.callCount, 0) << "the key-up must not end the composition just edited";
    EXPECT_FALSE(up.swallow);
  }
}

TEST_F(HookPipelineTest, FocalHookTakesTheHotkeyKeyPressedWithItsModifier) {
  pipeline.HandleFocal(Down(kPrimary));  // the processor remembers the modifier
  Hold({kVkControl});
  const HookDecision completed = pipeline.DecideFocal(Down(kSecondary));
  EXPECT_EQ(CallsOf(completed), (std::vector<HookedKeyCall>{{0, kSecondary}}));
  EXPECT_TRUE(completed.swallow);
  state.keys.LastKey = kResetSignal;
  EXPECT_FALSE(pipeline.DecideFocal(Down(kSecondary)).swallow) << "Ctrl+F12 without the hotkey is the application's";
}

TEST_F(HookPipelineTest, KeyUpGetsItsKeyDownsVerdict) {
  EXPECT_TRUE(pipeline.DecideGlobal(Down('K')).swallow);
  const HookDecision up = pipeline.DecideGlobal(Up('K'));
  EXPECT_TRUE(up.swallow) << "the application never saw the key go down";
  EXPECT_EQ(up.callCount, 0);

  Hold({kVkControl});
  EXPECT_FALSE(pipeline.DecideGlobal(Down('C')).swallow);
  Hold({});
  Click();  // the key-up now arrives in click mode, where a letter's key-up would type
  const HookDecision ctrlUp = pipeline.DecideGlobal(Up('C'));
  EXPECT_FALSE(ctrlUp.swallow) << "a key-up whose down passed must pass, or the key sticks";
  EXPECT_EQ(ctrlUp.callCount, 0) << "the key was not typed, so it must not be typed now";
}

TEST_F(HookPipelineTest, LetterDownBeforeClickIsNotTypedAgainOnItsKeyUp) {
  pipeline.DecideGlobal(Down('A'));
  Click();
  const HookDecision up = pipeline.DecideGlobal(Up('A'));
  EXPECT_EQ(up.callCount, 0);
  EXPECT_TRUE(up.swallow);
}

TEST_F(HookPipelineTest, ClickModeTypesSlowLettersOnKeyUpWithTheirDownShift) {
  Click();
  EXPECT_EQ(state.ClickPending, 1);
  Hold({kVkShift});
  const HookDecision down = pipeline.DecideGlobal(Down('N'));
  EXPECT_TRUE(down.swallow);
  EXPECT_EQ(down.callCount, 0) << "nothing is typed on key-down after a click";
  EXPECT_EQ(state.keys.LetterShift, 1);
  Hold({});  // Shift released before the letter: the letter still counts as shifted
  clock.now += 200;
  const HookDecision up = pipeline.DecideGlobal(Up('N'));
  EXPECT_TRUE(up.swallow);
  EXPECT_EQ(CallsOf(up), (std::vector<HookedKeyCall>{{1, 'N'}}));
  EXPECT_TRUE(up.resetEngineFirst) << "the click moved the caret: the composition starts afresh";
  EXPECT_EQ(state.keys.LetterShift, 0);

  clock.now += 200;
  pipeline.DecideGlobal(Down(0xBE));
  EXPECT_EQ(state.keys.PunctShift, 0);
  const HookDecision second = pipeline.DecideGlobal(Up(0xBE));
  EXPECT_EQ(CallsOf(second), (std::vector<HookedKeyCall>{{0, 0xBE}}));
  EXPECT_FALSE(second.resetEngineFirst) << "only the first key after the click starts afresh";
}

TEST_F(HookPipelineTest, FastKeyDownEndsClickModeAndLosesNothing) {
  Click();
  pipeline.DecideGlobal(Down('V'));
  clock.now += 30;  // overlapping keys: 'A' goes down before 'V' comes up
  const HookDecision fast = pipeline.DecideGlobal(Down('A'));
  EXPECT_EQ(state.ClickPending, 0);
  EXPECT_TRUE(fast.swallow);
  EXPECT_EQ(CallsOf(fast), (std::vector<HookedKeyCall>{{0, 'V'}, {0, 'A'}})) << "held-back key first, in order";
  const HookDecision vUp = pipeline.DecideGlobal(Up('V'));
  const HookDecision aUp = pipeline.DecideGlobal(Up('A'));
  EXPECT_EQ(vUp.callCount + aUp.callCount, 0) << "no key is handled twice";
  EXPECT_TRUE(vUp.swallow);
  EXPECT_TRUE(aUp.swallow);
}

// Key-up processing after a click must never change the order in which keys went down.
struct ClickSequenceRow {
  const char* name;
  struct Step {
    bool down;
    int vk;
    std::uint32_t atMs;
    std::vector<int> held;
  };
  std::vector<Step> steps;
  std::u16string typed;  // the engine's log: '|' is a reset
};

class ClickModeOrder : public HookPipelineTest, public ::testing::WithParamInterface<ClickSequenceRow> {};

TEST_P(ClickModeOrder, KeysGoOutInTheOrderTheyWentDown) {
  Click();
  const std::uint32_t start = clock.now;
  for (const auto& step : GetParam().steps) {
    clock.now = start + step.atMs;
    held.down = {step.held.begin(), step.held.end()};
    pipeline.HandleGlobal(step.down ? Down(step.vk) : Up(step.vk));
  }
  EXPECT_EQ(engine.log, GetParam().typed);
}

INSTANTIATE_TEST_SUITE_P(
    HookDecision, ClickModeOrder,
    ::testing::Values(
        ClickSequenceRow{"RolledKa",
                         {{true, 'K', 0, {}}, {true, 'A', 80, {}}, {false, 'A', 120, {}}, {false, 'K', 160, {}}},
                         u"|ka"},
        ClickSequenceRow{"RolledThreeKeysReleasedBackwards",
                         {{true, 'V', 0, {}},
                          {true, 'A', 90, {}},
                          {true, 'N', 200, {}},
                          {false, 'N', 260, {}},
                          {false, 'A', 300, {}},
                          {false, 'V', 340, {}}},
                         u"|van"},
        ClickSequenceRow{"RolledMiddleKeyUpFirst",
                         {{true, 'V', 0, {}},
                          {true, 'A', 90, {}},
                          {true, 'N', 200, {}},
                          {false, 'A', 260, {}},
                          {false, 'N', 300, {}},
                          {false, 'V', 340, {}}},
                         u"|van"},
        ClickSequenceRow{
            "RolledIntoShiftedLetter",
            {{true, 'K', 0, {}}, {true, 'N', 100, {kVkShift}}, {false, 'N', 150, {kVkShift}}, {false, 'K', 200, {}}},
            u"|kN"},
        ClickSequenceRow{"NotRolled",
                         {{true, 'K', 0, {}}, {false, 'K', 50, {}}, {true, 'A', 150, {}}, {false, 'A', 200, {}}},
                         u"|ka"},
        ClickSequenceRow{"OverlapFasterThanFiftySixMs",
                         {{true, 'V', 0, {}}, {true, 'A', 30, {}}, {false, 'V', 60, {}}, {false, 'A', 90, {}}},
                         u"|va"},
        ClickSequenceRow{
            "EnterWhileALetterIsHeld",
            {{true, 'K', 0, {}}, {true, kVkReturn, 100, {}}, {false, kVkReturn, 150, {}}, {false, 'K', 200, {}}},
            u"|k|"},
        ClickSequenceRow{
            "ArrowWhileALetterIsHeld", {{true, 'K', 0, {}}, {true, 0x25, 100, {}}, {false, 'K', 200, {}}}, u"|k|"},
        ClickSequenceRow{"ShiftAloneDoesNotHurryTheHeldLetter",
                         {{true, 'K', 0, {}},
                          {true, 0xA0, 100, {}},
                          {false, 'K', 200, {kVkShift}},
                          {true, 'A', 300, {kVkShift}},
                          {false, 'A', 350, {kVkShift}}},
                         u"|kA"}),
    [](const ::testing::TestParamInfo<ClickSequenceRow>& info) { return info.param.name; });

TEST_F(HookPipelineTest, ChordWhileALetterIsHeldTypesTheLetterBeforeTheChordPasses) {
  Click();
  pipeline.HandleGlobal(Down('K'));
  clock.now += 100;
  Hold({kVkControl});
  const HookDecision paste = pipeline.DecideGlobal(Down('V'));
  EXPECT_FALSE(paste.swallow) << "Ctrl+V still reaches the application";
  EXPECT_EQ(CallsOf(paste), (std::vector<HookedKeyCall>{{0, 'K'}})) << "after the letter that went down first";
  Hold({});
  EXPECT_EQ(pipeline.DecideGlobal(Up('K')).callCount, 0) << "the letter is not typed twice";
}

TEST_F(HookPipelineTest, RolledKeyUpsAreSwallowedOnceAndNeverTypedTwice) {
  Click();
  pipeline.DecideGlobal(Down('K'));
  clock.now += 80;
  pipeline.DecideGlobal(Down('A'));
  const HookDecision aUp = pipeline.DecideGlobal(Up('A'));
  EXPECT_EQ(CallsOf(aUp), (std::vector<HookedKeyCall>{{0, 'K'}, {0, 'A'}}));
  EXPECT_TRUE(aUp.swallow);
  const HookDecision kUp = pipeline.DecideGlobal(Up('K'));
  EXPECT_EQ(kUp.callCount, 0);
  EXPECT_TRUE(kUp.swallow) << "the application never saw k go down";
  EXPECT_EQ(state.keys.LetterShift, 0);
}

TEST_F(HookPipelineTest, FiftySixMillisecondsIsSlowEnoughAcrossTheTickWrap) {
  Click();
  clock.now = 0xFFFFFFF0u;
  pipeline.DecideGlobal(Down('K'));
  pipeline.DecideGlobal(Up('K'));
  clock.now = 0xFFFFFFF0u + 56;  // wraps past zero
  EXPECT_EQ(pipeline.DecideGlobal(Down('A')).callCount, 0);
  EXPECT_EQ(state.ClickPending, 1);
  pipeline.DecideGlobal(Up('A'));
  clock.now += 55;
  EXPECT_EQ(pipeline.DecideGlobal(Down('M')).callCount, 1);
  EXPECT_EQ(state.ClickPending, 0);
}

TEST_F(HookPipelineTest, ChordInClickModeLeavesClickModeAndPasses) {
  Click();
  Hold({kVkControl});
  const HookDecision decision = pipeline.DecideGlobal(Down('V'));
  EXPECT_FALSE(decision.swallow);
  EXPECT_EQ(decision.callCount, 0);
  EXPECT_EQ(state.ClickPending, 0);
}

TEST_F(HookPipelineTest, OnlyLeftButtonEntersClickMode) {
  pipeline.OnMouse(0x204);  // right button down
  pipeline.OnMouse(0x200);  // move
  EXPECT_EQ(state.ClickPending, 0);
  pipeline.OnMouse(kWmLButtonDown);
  EXPECT_EQ(state.ClickPending, 1);
}

TEST_F(HookPipelineTest, FocalHookTakesDigitsOnlyWhileAHotkeyIsArmed) {
  EXPECT_FALSE(pipeline.DecideFocal(Down('1')).swallow);
  EXPECT_FALSE(pipeline.DecideFocal(Down(0x61)).swallow) << "the keypad keeps working with typing off";
  EXPECT_FALSE(pipeline.DecideFocal(Down('K')).swallow);

  const HookDecision primary = pipeline.DecideFocal(Down(kPrimary));
  EXPECT_FALSE(primary.swallow);
  EXPECT_EQ(CallsOf(primary), (std::vector<HookedKeyCall>{{0, kPrimary}}));
  processor.ProcessHookedKey(0, kPrimary);
  const HookDecision digit = pipeline.DecideFocal(Down('2'));
  EXPECT_TRUE(digit.swallow);
  EXPECT_EQ(CallsOf(digit), (std::vector<HookedKeyCall>{{0, '2'}}));
  EXPECT_TRUE(pipeline.DecideFocal(Up('2')).swallow) << "the digit's key-up follows its down";
  EXPECT_TRUE(state.HotkeyArmed);

  Hold({kVkShift});
  EXPECT_FALSE(pipeline.DecideFocal(Down('3')).swallow) << "a shifted digit is a symbol, not a choice";
  Hold({});
  EXPECT_TRUE(pipeline.DecideFocal(Down(kSecondary)).swallow);
}

TEST_F(HookPipelineTest, WithTypingOffADigitAfterThePauseReachesTheApplication) {
  pipeline.HandleFocal(Down(kSecondary));
  ASSERT_TRUE(state.HotkeyArmed);
  clock.now += 400;
  EXPECT_TRUE(pipeline.HandleFocal(Down('1')).swallow) << "the number's first digit chooses";
  pipeline.HandleFocal(Up('1'));
  clock.now += HookedKeyProcessor::kHotkeyNumberPauseMs + 200;
  const HookDecision late = pipeline.DecideFocal(Down('2'));
  EXPECT_FALSE(late.swallow) << "typed 1.2 s later, the digit is text";
  EXPECT_EQ(late.callCount, 0);
  EXPECT_FALSE(state.HotkeyArmed);
}

TEST_F(HookPipelineTest, WithTypingOnADigitAfterThePauseIsTyped) {
  int chosen = 0;
  processor.SetHotkeyDigitHandler([&](int) {
    state.keys.ComposeFlag = 1;
    ++chosen;
  });
  pipeline.HandleGlobal(Down(kSecondary));
  clock.now += 300;
  pipeline.HandleGlobal(Down('1'));
  clock.now += 1200;
  EXPECT_TRUE(pipeline.HandleGlobal(Down('2')).swallow);
  EXPECT_EQ(chosen, 1);
  EXPECT_EQ(engine.log, u"2");
}

TEST_F(HookPipelineTest, HotkeyKeyHeldWithItsModifierGoesOnWithTheHotkey) {
  // Typing on, Ctrl+F12 pressed as one chord: the F12 continues the hotkey. The system counts
  // a key as down only after its own key-down has passed the hooks.
  pipeline.HandleGlobal(Down(kPrimary));
  EXPECT_EQ(state.keys.LastKey, kPrimary);
  Hold({kVkControl, kPrimary});
  const HookDecision secondary = pipeline.DecideGlobal(Down(kSecondary));
  EXPECT_TRUE(secondary.swallow);
  EXPECT_EQ(CallsOf(secondary), (std::vector<HookedKeyCall>{{0, kSecondary}}));

  // The same key under a chord that did not begin with the hotkey is an ordinary chord.
  state.keys.LastKey = kResetSignal;
  const HookDecision plain = pipeline.DecideGlobal(Down(kSecondary));
  EXPECT_FALSE(plain.swallow);
  EXPECT_EQ(CallsOf(plain), (std::vector<HookedKeyCall>{{0, kResetSignal}}));
}

TEST_F(HookPipelineTest, TheHotkeyModifierHeldLongBeforeItsKeyStillMakesTheHotkey) {
  pipeline.HandleGlobal(Down(kPrimary));
  clock.now += 3000;
  Hold({kVkControl, kPrimary});
  const HookDecision secondary = pipeline.DecideGlobal(Down(kSecondary));
  EXPECT_TRUE(secondary.swallow);
  EXPECT_EQ(CallsOf(secondary), (std::vector<HookedKeyCall>{{0, kSecondary}}));
}

TEST_F(HookPipelineTest, ChordWithTheHotkeyModifierEndsTheHotkeySoTheNextLetterTypes) {
  // Right Ctrl is the hotkey's modifier; Ctrl+C is a chord of its own, not a hotkey.
  pipeline.HandleGlobal(Down(kPrimary));
  Hold({kVkControl, kPrimary});
  const HookOutcome copy = pipeline.HandleGlobal(Down('C'));
  EXPECT_FALSE(copy.swallow);
  Hold({});
  pipeline.HandleGlobal(Up(kPrimary));
  pipeline.HandleGlobal(Down('K'));
  EXPECT_EQ(engine.log, u"|k");

  // Without a hotkey pending a chord of a typing key calls nothing.
  Hold({kVkControl});
  EXPECT_TRUE(CallsOf(pipeline.DecideGlobal(Down('V'))).empty());
}

TEST_F(HookPipelineTest, FocalHookDisarmsOnOtherKeysButNotOnItsOwnOutput) {
  state.HotkeyArmed = true;
  pipeline.DecideFocal(Down(0x12, kFlagInjected));  // the synthesised menu-suppression Alt
  EXPECT_TRUE(state.HotkeyArmed);
  pipeline.DecideFocal(Down('K'));
  EXPECT_FALSE(state.HotkeyArmed);
}

TEST_F(HookPipelineTest, HandleGlobalFeedsTheEngineInOrder) {
  pipeline.HandleGlobal(Down('K'));
  pipeline.HandleGlobal(Up('K'));
  held.down = {kVkShift};
  pipeline.HandleGlobal(Down('A'));
  held.down = {};
  pipeline.HandleGlobal(Down(0x25));
  EXPECT_EQ(engine.log, u"kA|");
}

}  // namespace
}  // namespace quilom::shell
