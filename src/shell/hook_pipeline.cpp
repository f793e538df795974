#include "shell/hook_pipeline.hpp"

#include <algorithm>

#include "shell/key_classes.hpp"

namespace quilom::shell {
namespace {

int KeyOf(const KeyEvent& event) { return static_cast<int>(event.vkCode & 0xFFFF); }

bool Recordable(int vk) { return vk > 0 && vk < 256; }

}  // namespace

HookPipeline::HookPipeline(TypingFrontState& state, HookedKeyProcessor& processor, const KeyStateReader& keys,
                           const Clock& clock)
    : state_(state), processor_(processor), keys_(keys), clock_(clock) {}

bool HookPipeline::ChordHeld() const {
  return keys_.IsDown(kVkControl) || keys_.IsDown(kVkMenu) || keys_.IsDown(kVkLWin) || keys_.IsDown(kVkRWin);
}

bool HookPipeline::EditsComposition() const { return state_.editing.smartEditing || state_.editing.fastEditing; }

bool HookPipeline::ShiftHeld() const { return keys_.IsDown(kVkShift); }

HookDecision HookPipeline::DecideGlobal(const KeyEvent& event) {
  if (event.flags & kFlagInjected) return {};
  const int vk = KeyOf(event);
  HookDecision decision;
  if (IsKeyDownMessage(event.message)) {
    // A hotkey key never ends the sequence: Alt held a while before F12 is still Alt+F12.
    if (!state_.hotkeys.IsHotkey(vk)) processor_.EndPausedHotkeyNumber();
    decision = state_.ClickPending != 0 ? ClickModeDown(vk) : NormalDown(vk);
    Remember(vk, decision);
  } else if (IsKeyUpMessage(event.message)) {
    decision = GlobalUp(event, vk);
  } else {
    return decision;
  }
  if (clickBrokeComposition_ && decision.callCount > 0) {
    decision.resetEngineFirst = true;
    clickBrokeComposition_ = false;
  }
  return decision;
}

HookDecision HookPipeline::NormalDown(int vk) const {
  if (ChordHeld()) return ChordDown(vk);
  HookDecision decision;
  const KeyClass keyClass = ClassifyKey(vk);
  if (IsTypingClass(keyClass)) {
    decision.Add(ShiftHeld() ? 1 : 0, vk);
    decision.swallow = true;
  } else if (keyClass == KeyClass::Modifier) {
    if (vk == state_.hotkeys.PrimaryHotkeyVk) decision.Add(0, vk);
  } else if (keyClass == KeyClass::TabEnter) {
    decision.Add(0, vk);
  } else if (state_.hotkeys.IsSecondary(vk) || keyClass == KeyClass::NumpadDigit) {
    decision.Add(0, vk);
    decision.swallow = true;
  } else if (vk == kVkBack && EditsComposition()) {
    decision.Add(0, vk);
  } else {
    decision.Add(0, kResetSignal);
  }
  return decision;
}

HookDecision HookPipeline::ChordDown(int vk) const {
  HookDecision decision;
  const KeyClass keyClass = ClassifyKey(vk);
  const bool hotkeyPending = state_.hotkeys.IsHotkey(state_.keys.LastKey);
  if (IsTypingClass(keyClass)) {
    // A hotkey made with Alt or Ctrl is armed by every Alt+F or Ctrl+C; the chord shows the
    // modifier served something else, so the hotkey ends here rather than eating the next letter.
    if (hotkeyPending) decision.Add(0, kResetSignal);
    return decision;
  }
  // The hotkey's own key pressed while its modifier is still down (Alt+F12 as one chord) goes on
  // with the hotkey: wherever the system still reports the modifier down after the menu
  // suppression, a reset here would make the hotkey useless while typing is on.
  if (state_.hotkeys.IsSecondary(vk) && hotkeyPending) {
    decision.Add(0, vk);
    decision.swallow = true;
    return decision;
  }
  decision.Add(0, keyClass == KeyClass::TabEnter ? vk : kResetSignal);
  return decision;
}

HookDecision HookPipeline::ClickModeDown(int vk) {
  if (ChordHeld()) {
    state_.ClickPending = 0;
    return AfterHeldBack(vk, ChordDown(vk));
  }
  const std::uint32_t now = clock_.TickCount();
  const auto previous = static_cast<std::uint32_t>(state_.keys.LastKeyDownTick);
  state_.keys.LastKeyDownTick = static_cast<std::int32_t>(now);
  if (TicksBetween(previous, now) < kFastKeyMs) {
    state_.ClickPending = 0;
    return AfterHeldBack(vk, NormalDown(vk));
  }
  const KeyClass keyClass = ClassifyKey(vk);
  if (!IsTypingClass(keyClass) || heldCount_ == static_cast<int>(heldOrder_.size()))
    return AfterHeldBack(vk, NormalDown(vk));
  const bool shift = ShiftHeld();
  if (keyClass == KeyClass::LetterSpace) state_.keys.LetterShift = shift ? 1 : 0;
  if (keyClass == KeyClass::Punctuation) state_.keys.PunctShift = shift ? 2 : 0;
  if (keyClass == KeyClass::Digit) state_.keys.DigitShift = shift ? 3 : 0;
  HoldBack(vk, shift);
  HookDecision decision;
  decision.swallow = true;
  return decision;
}

bool HookPipeline::IsHeldBack(int vk) const {
  const auto end = heldOrder_.begin() + heldCount_;
  return std::find(heldOrder_.begin(), end, vk) != end;
}

void HookPipeline::HoldBack(int vk, bool shift) {
  if (!IsHeldBack(vk)) heldOrder_[heldCount_++] = static_cast<std::uint8_t>(vk);
  heldShift_[vk] = shift ? 1 : 0;
}

void HookPipeline::FlushHeldBack(HookDecision& decision) { ReleaseHeldBack(heldCount_, decision); }

void HookPipeline::ReleaseHeldBack(int count, HookDecision& decision) {
  for (int i = 0; i < count; ++i) {
    const int vk = heldOrder_[i];
    decision.Add(heldShift_[vk], vk);
    downRecords_[vk] = DownRecord::Swallowed;
    const KeyClass keyClass = ClassifyKey(vk);
    if (keyClass == KeyClass::LetterSpace) state_.keys.LetterShift = 0;
    if (keyClass == KeyClass::Punctuation) state_.keys.PunctShift = 0;
    if (keyClass == KeyClass::Digit) state_.keys.DigitShift = 0;
  }
  std::copy(heldOrder_.begin() + count, heldOrder_.begin() + heldCount_, heldOrder_.begin());
  heldCount_ -= count;
}

HookDecision HookPipeline::AfterHeldBack(int vk, const HookDecision& own) {
  // A lone Shift or Ctrl going down neither types nor reaches the text: the held keys may wait.
  const bool reachesText = own.callCount > 0 || ClassifyKey(vk) != KeyClass::Modifier;
  if (heldCount_ == 0 || !reachesText) return own;
  HookDecision decision;
  FlushHeldBack(decision);
  for (int i = 0; i < own.callCount; ++i) decision.Add(own.calls[i].shift, own.calls[i].key);
  decision.swallow = own.swallow;
  return decision;
}

void HookPipeline::Remember(int vk, const HookDecision& decision) {
  if (!Recordable(vk)) return;
  if (downRecords_[vk] == DownRecord::HeldBack) return;  // an auto-repeat of a held-back key
  const bool held = IsHeldBack(vk);
  if (held) {
    downRecords_[vk] = DownRecord::HeldBack;
  } else {
    downRecords_[vk] = decision.swallow ? DownRecord::Swallowed : DownRecord::Passed;
  }
}

HookDecision HookPipeline::GlobalUp(const KeyEvent& event, int vk) {
  HookDecision decision;
  const DownRecord record = Recordable(vk) ? downRecords_[vk] : DownRecord::None;
  if (Recordable(vk)) downRecords_[vk] = DownRecord::None;
  if (event.message == kWmKeyUp && vk == kVkBack && event.flags == kFlagUp && !EditsComposition()) {
    decision.Add(0, kResetSignal);
    return decision;
  }
  if (record == DownRecord::HeldBack) {
    // Rolled keys come up in another order than they went down: the keys held before this one
    // go out first, so the text follows the order of the key-downs.
    const auto end = heldOrder_.begin() + heldCount_;
    const auto position = std::find(heldOrder_.begin(), end, vk);
    if (position != end) ReleaseHeldBack(static_cast<int>(position - heldOrder_.begin()) + 1, decision);
  }
  decision.swallow = record == DownRecord::HeldBack || record == DownRecord::Swallowed;
  return decision;
}

HookDecision HookPipeline::DecideFocal(const KeyEvent& event) {
  HookDecision decision;
  if (event.flags & kFlagInjected) return decision;
  const int vk = KeyOf(event);
  const KeyClass keyClass = ClassifyKey(vk);
  if (IsKeyDownMessage(event.message)) {
    // With typing off a digit after the pause must reach the application, not choose a keymap.
    if (!state_.hotkeys.IsHotkey(vk)) processor_.EndPausedHotkeyNumber();
    if (ChordHeld() && state_.hotkeys.IsSecondary(vk) && state_.hotkeys.IsHotkey(state_.keys.LastKey)) {
      // The hotkey as one chord, as in the global hook: its key completes the hotkey.
      decision.Add(0, vk);
      decision.swallow = true;
    } else if (!ChordHeld() && keyClass != KeyClass::LetterSpace) {
      const bool digit = keyClass == KeyClass::Digit || keyClass == KeyClass::NumpadDigit;
      if (digit && state_.HotkeyArmed && !ShiftHeld()) {
        decision.Add(0, vk);
        decision.swallow = true;
      } else if (state_.hotkeys.IsSecondary(vk)) {
        decision.Add(0, vk);
        decision.swallow = true;
      } else if (keyClass == KeyClass::Modifier && vk == state_.hotkeys.PrimaryHotkeyVk) {
        decision.Add(0, vk);
      }
    }
    if (Recordable(vk)) downRecords_[vk] = decision.swallow ? DownRecord::Swallowed : DownRecord::Passed;
  } else if (IsKeyUpMessage(event.message) && Recordable(vk)) {
    decision.swallow = downRecords_[vk] == DownRecord::Swallowed;
    downRecords_[vk] = DownRecord::None;
  }
  const bool keepsArmed =
      state_.hotkeys.IsHotkey(vk) || keyClass == KeyClass::Digit || keyClass == KeyClass::NumpadDigit;
  if (!decision.swallow && !keepsArmed) state_.HotkeyArmed = false;
  return decision;
}

void HookPipeline::OnMouse(std::uint32_t message) {
  if (message == kWmLButtonDown || message == kWmLButtonUp) {
    state_.ClickPending = 1;
    clickBrokeComposition_ = true;
  }
}

void HookPipeline::ForgetKeys() {
  downRecords_.fill(DownRecord::None);
  heldCount_ = 0;
  clickBrokeComposition_ = false;
}

HookOutcome HookPipeline::CarryOut(const HookDecision& decision) noexcept {
  HookOutcome outcome;
  outcome.swallow = decision.swallow;
  if (decision.resetEngineFirst) processor_.ResetComposition();
  for (int i = 0; i < decision.callCount; ++i) {
    const MenuSuppression menu = processor_.ProcessHookedKey(decision.calls[i].shift, decision.calls[i].key);
    if (menu != MenuSuppression::None) outcome.menu = menu;
  }
  return outcome;
}

HookOutcome HookPipeline::HandleGlobal(const KeyEvent& event) noexcept { return CarryOut(DecideGlobal(event)); }

HookOutcome HookPipeline::HandleFocal(const KeyEvent& event) noexcept { return CarryOut(DecideFocal(event)); }

}  // namespace quilom::shell
