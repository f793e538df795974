#pragma once

#include <windows.h>

// The main window's menu bar: Typing, Tools, Settings and Help. The Tools and Settings menus
// list the windows of app_windows, and the tray menu reuses the same ids, so one WM_COMMAND
// handler serves both.
namespace quilom::shell::win32 {

enum MainCommand : UINT {
  kCmdStartStop = 0x7001,
  kCmdShowFloater,
  kCmdHideToTray,
  kCmdExit,
  kCmdGettingStarted,
  kCmdKeymapChart,
  kCmdAbout,
  // AppendAppWindowItems ids: first id + index into AppWindowEntries().
  kCmdFirstAppWindow = 0x7400,
};

// The menu bar; `withFloater` adds the floater's show/hide entry.
HMENU BuildMainMenu(bool withFloater);

// Popups for the tray menu (`frmTm`): Start/Stop, Tools and Settings as submenus, About, Hide,
// Exit. The start/stop entry is checked while typing is on.
HMENU BuildTrayMenu(bool typingOn);

}  // namespace quilom::shell::win32
