#pragma once

#include <string>
#include <string_view>

#include "shell/hotkey_text.hpp"

// The set-hotkey button's checks: a hotkey text from `cmbHotkeys` is accepted, cleared or
// refused with the message the user sees.
namespace quilom::shell {

// Whether the system would give us a hotkey: RegisterHotKey / UnregisterHotKey on the main
// window with identifier 1 in the program, a fake in tests.
class HotkeyAvailability {
 public:
  virtual ~HotkeyAvailability() = default;
  virtual bool Register(unsigned modifiers, int vk) noexcept = 0;
  virtual bool Unregister() noexcept = 0;
};

enum class HotkeyVerdict {
  Cleared,   // "None": no hotkey; store "None", all key codes 0
  Accepted,  // store the text under "Present Hotkey" and use `codes`
  Refused,   // show `message`; the previous hotkey stays
};

struct HotkeyCheckResult {
  HotkeyVerdict verdict = HotkeyVerdict::Refused;
  std::u16string message;  // empty unless refused
  HotkeyCodes codes;
};

// Checks in order: "None"; a text naming no known key; function keys alone are fine; Shift
// with a character key and no other modifier; a character key alone; then the availability
// test (register, then give it back at once). A failure to give the registration back refuses
// the hotkey too, decision of ours: the user is told to try again later, so nothing is stored.
HotkeyCheckResult CheckHotkey(std::u16string_view hotkeyText, HotkeyAvailability& availability);

}  // namespace quilom::shell
