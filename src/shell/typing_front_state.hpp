#pragma once

#include <cstdint>

// The process-wide state that the keyboard hooks and the key processor share. One instance
// lives for the life of the main window; everything runs on the GUI thread, so no locking.
namespace quilom::shell {

struct HookKeyState {
  std::int32_t CurrentMap = 0;
  std::int32_t ComposeFlag = 0;
  std::int32_t LastKey = 0;
  std::int32_t LetterShift = 0;  // 1 when Shift was down with the pending letter/space key
  std::int32_t PunctShift = 0;   // 2 when Shift was down with the pending punctuation key
  std::int32_t DigitShift = 0;   // 3 when Shift was down with the pending digit key
  std::int32_t LastKeyDownTick = 0;
};

// Virtual-key codes of the hotkeys; 0 means "not set" and matches no key.
struct HotkeyCodes {
  int PrimaryHotkeyVk = 0;     // a modifier-class key
  int SecondaryHotkeyVk1 = 0;  // ordinary keys
  int SecondaryHotkeyVk2 = 0;

  bool IsSecondary(int vk) const { return vk != 0 && (vk == SecondaryHotkeyVk1 || vk == SecondaryHotkeyVk2); }
  bool IsHotkey(int vk) const { return vk != 0 && (vk == PrimaryHotkeyVk || IsSecondary(vk)); }
};

// The main window's editing options as the hooks read them (see main_window_options.hpp).
struct EditingChoices {
  bool smartEditing = false;   // Backspace edits the composition instead of ending it
  bool fastEditing = false;    // Backspace erases a whole letter of the word being typed
  bool includeHotkeys = true;  // digits after the hotkey choose a keymap
  bool operator==(const EditingChoices&) const = default;
};

struct TypingFrontState {
  HookKeyState keys;
  HotkeyCodes hotkeys;
  EditingChoices editing;
  int ClickPending = 0;      // 1 from a left click until the keyboard hook leaves click mode
  bool HotkeyArmed = false;  // a hotkey key arrived; the next digit may select a keymap
};

}  // namespace quilom::shell
