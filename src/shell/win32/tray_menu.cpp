#include "shell/win32/tray_menu.hpp"

#include "shell/win32/main_menu.hpp"

namespace quilom::shell::win32 {

UINT ShowTrayMenu(HWND owner, POINT screenPoint, bool typingOn) {
  HMENU menu = BuildTrayMenu(typingOn);
  if (menu == nullptr) return 0;
  // Without the owner in front the menu would not close when the user clicks elsewhere.
  SetForegroundWindow(owner);
  const UINT flags = TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_BOTTOMALIGN |
                     (GetSystemMetrics(SM_MENUDROPALIGNMENT) != 0 ? TPM_RIGHTALIGN : TPM_LEFTALIGN);
  const UINT chosen = static_cast<UINT>(TrackPopupMenuEx(menu, flags, screenPoint.x, screenPoint.y, owner, nullptr));
  DestroyMenu(menu);
  // Lets the menu loop end cleanly, so the next right click opens the menu at the first try.
  PostMessageW(owner, WM_NULL, 0, 0);
  if (chosen == kCmdExit && !ConfirmExit(owner)) return 0;
  return chosen;
}

bool ConfirmExit(HWND owner) {
  return MessageBoxW(owner, L"Are you sure you want to exit?", L"Quilom++", MB_YESNO | MB_ICONQUESTION) == IDYES;
}

}  // namespace quilom::shell::win32
