#include "shell/win32/tray_menu.hpp"

namespace quilom::shell::win32 {

namespace {

struct MenuEntry {
  TrayMenuCommand command;
  const wchar_t* text;
};

constexpr MenuEntry kEntries[] = {
    {TrayMenuCommand::StartStopTyping, L"Start/Stop global typing"},
    {TrayMenuCommand::Tools, L"Tools"},
    {TrayMenuCommand::Settings, L"Settings"},
    {TrayMenuCommand::About, L"About"},
    {TrayMenuCommand::Hide, L"Hide"},
    {TrayMenuCommand::Exit, L"Exit"},
};

HMENU BuildMenu(bool typingOn) {
  HMENU menu = CreatePopupMenu();
  if (menu == nullptr) return nullptr;
  for (const MenuEntry& entry : kEntries) {
    if (entry.command == TrayMenuCommand::Exit) AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    UINT flags = MF_STRING;
    if (entry.command == TrayMenuCommand::StartStopTyping && typingOn) flags |= MF_CHECKED;
    AppendMenuW(menu, flags, static_cast<UINT_PTR>(entry.command), entry.text);
  }
  SetMenuDefaultItem(menu, static_cast<UINT>(TrayMenuCommand::StartStopTyping), FALSE);
  return menu;
}

}  // namespace

TrayMenuCommand ShowTrayMenu(HWND owner, POINT screenPoint, bool typingOn) {
  HMENU menu = BuildMenu(typingOn);
  if (menu == nullptr) return TrayMenuCommand::None;
  // Without the owner in front the menu would not close when the user clicks elsewhere.
  SetForegroundWindow(owner);
  const UINT flags = TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_BOTTOMALIGN |
                     (GetSystemMetrics(SM_MENUDROPALIGNMENT) != 0 ? TPM_RIGHTALIGN : TPM_LEFTALIGN);
  const UINT chosen = static_cast<UINT>(TrackPopupMenuEx(menu, flags, screenPoint.x, screenPoint.y, owner, nullptr));
  DestroyMenu(menu);
  // Lets the menu loop end cleanly, so the next right click opens the menu at the first try.
  PostMessageW(owner, WM_NULL, 0, 0);
  if (chosen == static_cast<UINT>(TrayMenuCommand::Exit) && !ConfirmExit(owner)) return TrayMenuCommand::None;
  for (const MenuEntry& entry : kEntries)
    if (static_cast<UINT>(entry.command) == chosen) return entry.command;
  return TrayMenuCommand::None;
}

bool ConfirmExit(HWND owner) {
  return MessageBoxW(owner, L"Are you sure you want to exit?", L"Quilom++", MB_YESNO | MB_ICONQUESTION) == IDYES;
}

}  // namespace quilom::shell::win32
