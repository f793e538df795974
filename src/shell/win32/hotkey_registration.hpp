#pragma once

#include <windows.h>

#include "shell/hotkey_check.hpp"

// The availability test of a hotkey: the system is asked for it on the main window under
// identifier 1 and, when it agrees, given it back at once. The keys themselves are caught by
// the hook pipeline, never by WM_HOTKEY.
namespace quilom::shell::win32 {

class HotkeyRegistration final : public HotkeyAvailability {
 public:
  explicit HotkeyRegistration(HWND window) : window_(window) {}
  bool Register(unsigned modifiers, int vk) noexcept override;
  bool Unregister() noexcept override;

 private:
  static constexpr int kHotkeyId = 1;
  HWND window_;
};

}  // namespace quilom::shell::win32
