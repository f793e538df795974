#include "shell/win32/main_menu.hpp"

#include "shell/win32/app_windows.hpp"

namespace quilom::shell::win32 {

namespace {

HMENU AppWindowPopup(AppMenu menu) {
  HMENU popup = CreatePopupMenu();
  AppendAppWindowItems(popup, menu, kCmdFirstAppWindow);
  return popup;
}

void AppendPopup(HMENU parent, HMENU popup, const wchar_t* caption) {
  AppendMenuW(parent, MF_POPUP | MF_STRING, reinterpret_cast<UINT_PTR>(popup), caption);
}

}  // namespace

HMENU BuildMainMenu(bool withFloater) {
  HMENU bar = CreateMenu();
  HMENU typing = CreatePopupMenu();
  AppendMenuW(typing, MF_STRING, kCmdStartStop, L"&Start/Stop global typing");
  if (withFloater) AppendMenuW(typing, MF_STRING, kCmdShowFloater, L"Show/Hide the &Floater");
  AppendMenuW(typing, MF_STRING, kCmdHideToTray, L"&Hide to the tray\tEsc");
  AppendMenuW(typing, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(typing, MF_STRING, kCmdExit, L"E&xit");
  AppendPopup(bar, typing, L"&Typing");
  AppendPopup(bar, AppWindowPopup(AppMenu::Tools), L"T&ools");
  AppendPopup(bar, AppWindowPopup(AppMenu::Settings), L"&Settings");
  HMENU help = CreatePopupMenu();
  AppendMenuW(help, MF_STRING, kCmdGettingStarted, L"&Getting started");
  AppendMenuW(help, MF_STRING, kCmdKeymapChart, L"Keymap &chart");
  AppendMenuW(help, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(help, MF_STRING, kCmdAbout, L"&About Quilom++");
  AppendPopup(bar, help, L"&Help");
  return bar;
}

HMENU BuildTrayMenu(bool typingOn) {
  HMENU menu = CreatePopupMenu();
  if (menu == nullptr) return nullptr;
  AppendMenuW(menu, MF_STRING | (typingOn ? MF_CHECKED : 0), kCmdStartStop, L"&Start/Stop global typing");
  AppendPopup(menu, AppWindowPopup(AppMenu::Tools), L"T&ools");
  AppendPopup(menu, AppWindowPopup(AppMenu::Settings), L"&Settings");
  AppendMenuW(menu, MF_STRING, kCmdAbout, L"&About");
  AppendMenuW(menu, MF_STRING, kCmdHideToTray, L"&Hide");
  AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(menu, MF_STRING, kCmdExit, L"E&xit");
  SetMenuDefaultItem(menu, kCmdStartStop, FALSE);
  return menu;
}

}  // namespace quilom::shell::win32
