#include "shell/win32/low_level_hooks.hpp"

#include "shell/focused_typing.hpp"
#include "shell/win32/system_input.hpp"

namespace quilom::shell::win32 {
namespace {

TypingFront* g_front = nullptr;
const SelectionState* g_selection = nullptr;
FocusGate g_focusGate;

HHOOK AsHook(std::uintptr_t handle) { return reinterpret_cast<HHOOK>(handle); }

KeyEvent ToKeyEvent(WPARAM wParam, LPARAM lParam) {
  const auto* raw = reinterpret_cast<const KBDLLHOOKSTRUCT*>(lParam);
  return {static_cast<std::uint32_t>(wParam), raw->vkCode, raw->flags, raw->time};
}

void CarryOutMenu(MenuSuppression menu) {
  if (menu != MenuSuppression::None) SuppressMenuKey(menu == MenuSuppression::Alt);
}

DWORD WindowThread(HWND window) { return window != nullptr ? GetWindowThreadProcessId(window, nullptr) : 0; }

// In one-application mode a key typed outside the hooked window is handled as with typing off.
bool KeyReachesTyping() {
  if (g_selection == nullptr || !TypingLimitedToHookedWindow(*g_selection)) return true;
  const DWORD hookedThread = WindowThread(reinterpret_cast<HWND>(g_selection->HookedWindow));
  const bool reaches = TypingReachesForeground(*g_selection, WindowThread(GetForegroundWindow()), hookedThread);
  if (g_focusGate.Changed(reaches)) g_front->Processor().ResetComposition();
  return reaches;
}

LRESULT CALLBACK GlobalKeyboardProc(int nCode, WPARAM wParam, LPARAM lParam) {
  const HHOOK own = g_front != nullptr ? AsHook(g_front->Hooks().GlobalKeyboardHook()) : nullptr;
  if (nCode == HC_ACTION && g_front != nullptr) {
    const std::uint32_t entered = g_front->Health().CallbackEntered();
    const KeyEvent event = ToKeyEvent(wParam, lParam);
    const HookOutcome outcome =
        KeyReachesTyping() ? g_front->Pipeline().HandleGlobal(event) : g_front->Pipeline().HandleFocal(event);
    CarryOutMenu(outcome.menu);
    g_front->Health().CallbackLeft(entered);
    if (outcome.swallow) return 1;
  }
  return CallNextHookEx(own, nCode, wParam, lParam);
}

LRESULT CALLBACK FocalKeyboardProc(int nCode, WPARAM wParam, LPARAM lParam) {
  const HHOOK own = g_front != nullptr ? AsHook(g_front->Hooks().FocalKeyboardHook()) : nullptr;
  if (nCode == HC_ACTION && g_front != nullptr) {
    const std::uint32_t entered = g_front->Health().CallbackEntered();
    const HookOutcome outcome = g_front->Pipeline().HandleFocal(ToKeyEvent(wParam, lParam));
    CarryOutMenu(outcome.menu);
    g_front->Health().CallbackLeft(entered);
    if (outcome.swallow) return 1;
  }
  return CallNextHookEx(own, nCode, wParam, lParam);
}

LRESULT CALLBACK MouseProc(int nCode, WPARAM wParam, LPARAM lParam) {
  const HHOOK own = g_front != nullptr ? AsHook(g_front->Hooks().MouseHook()) : nullptr;
  if (nCode == HC_ACTION && g_front != nullptr) {
    g_front->Health().CallbackEntered();
    g_front->Pipeline().OnMouse(static_cast<std::uint32_t>(wParam));
  }
  return CallNextHookEx(own, nCode, wParam, lParam);
}

}  // namespace

std::uintptr_t LowLevelHookPlatform::Install(HookKind kind) noexcept {
  int type = WH_KEYBOARD_LL;
  HOOKPROC proc = GlobalKeyboardProc;
  if (kind == HookKind::FocalKeyboard) proc = FocalKeyboardProc;
  if (kind == HookKind::Mouse) {
    type = WH_MOUSE_LL;
    proc = MouseProc;
  }
  HHOOK hook = SetWindowsHookExA(type, proc, GetModuleHandleW(nullptr), 0);
  if (hook == nullptr) lastError_ = GetLastError();
  return reinterpret_cast<std::uintptr_t>(hook);
}

bool LowLevelHookPlatform::Remove(std::uintptr_t handle) noexcept {
  if (UnhookWindowsHookEx(AsHook(handle))) return true;
  lastError_ = GetLastError();
  return false;
}

void AttachTypingFront(TypingFront* front) { g_front = front; }

void AttachSelectionState(const SelectionState* state) { g_selection = state; }

}  // namespace quilom::shell::win32
