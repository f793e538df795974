#include "shell/win32/hotkey_registration.hpp"

namespace quilom::shell::win32 {

bool HotkeyRegistration::Register(unsigned modifiers, int vk) noexcept {
  return RegisterHotKey(window_, kHotkeyId, modifiers, static_cast<UINT>(vk)) != FALSE;
}

bool HotkeyRegistration::Unregister() noexcept { return UnregisterHotKey(window_, kHotkeyId) != FALSE; }

}  // namespace quilom::shell::win32
