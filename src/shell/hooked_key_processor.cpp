#include "shell/hooked_key_processor.hpp"

#include "shell/key_classes.hpp"
#include "shell/us_keyboard.hpp"

namespace quilom::shell {

HookedKeyProcessor::HookedKeyProcessor(TypingFrontState& state, translit::TypingEngine& engine, const Clock* clock)
    : state_(state), engine_(engine), clock_(clock) {}

bool HookedKeyProcessor::EndPausedHotkeyNumber() noexcept {
  const bool pending = state_.HotkeyArmed || state_.hotkeys.IsHotkey(state_.keys.LastKey);
  if (!pending || clock_ == nullptr) return false;
  if (TicksBetween(lastHotkeyTick_, clock_->TickCount()) <= kHotkeyNumberPauseMs) return false;
  state_.HotkeyArmed = false;
  state_.keys.ComposeFlag = 0;
  state_.keys.LastKey = kResetSignal;
  return true;
}

void HookedKeyProcessor::NoteHotkeyTime() {
  if (clock_ != nullptr) lastHotkeyTick_ = clock_->TickCount();
}

MenuSuppression HookedKeyProcessor::ProcessHookedKey(int shift, int key) noexcept {
  try {
    if (key == kResetSignal || key == kVkTab || key == kVkReturn) {
      state_.keys.LastKey = key;
      engine_.Reset();
      return MenuSuppression::None;
    }
    if (key == kVkBack) {
      state_.keys.LastKey = key;
      engine_.Backspace(state_.editing.fastEditing, state_.editing.smartEditing);
      return MenuSuppression::None;
    }
    if (state_.hotkeys.IsHotkey(key)) return ArmHotkey(key);
    EndPausedHotkeyNumber();
    if (!state_.hotkeys.IsHotkey(state_.keys.LastKey)) {
      TypeKey(shift, key);
      return MenuSuppression::None;
    }
    AfterHotkey(shift, key);
  } catch (...) {
    // A failing engine must not take the desktop's keyboard down with it.
  }
  return MenuSuppression::None;
}

MenuSuppression HookedKeyProcessor::ArmHotkey(int key) {
  const bool completes = state_.hotkeys.PrimaryHotkeyVk == 0 || state_.hotkeys.IsHotkey(state_.keys.LastKey);
  state_.HotkeyArmed = true;
  state_.keys.ComposeFlag = 0;
  state_.keys.LastKey = key;
  if (!state_.editing.includeHotkeys && state_.hotkeys.IsSecondary(key) && completes) {
    // Without "Include Hotkeys" the hotkey alone does what hotkey and 1 would; no number is
    // awaited, so the digits after it are text.
    state_.HotkeyArmed = false;
    state_.keys.LastKey = kResetSignal;
    if (digitHandler_) digitHandler_('1');
  }
  NoteHotkeyTime();
  const int primary = state_.hotkeys.PrimaryHotkeyVk;
  if (!IsAltKey(primary) && !IsWindowsKey(primary)) return MenuSuppression::None;
  if (IsAltKey(key)) return MenuSuppression::Alt;
  if (IsWindowsKey(key)) return MenuSuppression::Windows;
  return MenuSuppression::None;
}

void HookedKeyProcessor::AfterHotkey(int shift, int key) {
  state_.ClickPending = 0;
  const KeyClass keyClass = ClassifyKey(key);
  const bool digit = keyClass == KeyClass::Digit || keyClass == KeyClass::NumpadDigit;
  if (digit && shift != 1) {
    NoteHotkeyTime();
    if (digitHandler_) digitHandler_(key);
    return;
  }
  if (state_.keys.ComposeFlag == 1) {
    // The number is complete: this key is the first one typed in the keymap just chosen.
    state_.keys.LastKey = kResetSignal;
    TypeKey(shift, key);
    return;
  }
  if (shift == 1) return;
  state_.keys.LastKey = kResetSignal;
}

void HookedKeyProcessor::TypeKey(int shift, int key) {
  state_.HotkeyArmed = false;
  state_.keys.ComposeFlag = 0;
  const char16_t character = UsKeyCharacter(key, shift == 1);
  if (character != 0) engine_.ProcessKey(character);
}

void HookedKeyProcessor::ResetComposition() noexcept {
  try {
    engine_.Reset();
  } catch (...) {
  }
}

}  // namespace quilom::shell
