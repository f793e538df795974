#pragma once

#include <windows.h>

// The tray icon's menu (`frmTm`): Start/Stop global typing, Tools, Settings, About, Hide, Exit.
namespace quilom::shell::win32 {

// WM_COMMAND-style ids, kept clear of the main window's control ids.
enum class TrayMenuCommand : UINT {
  None = 0,
  StartStopTyping = 0x7101,
  Tools = 0x7102,
  Settings = 0x7103,
  About = 0x7104,
  Hide = 0x7105,
  Exit = 0x7106,
};

// Shows the menu at `screenPoint` (the cursor when the user right-clicked the icon) and
// returns the chosen command, None when the menu was dismissed. The start/stop entry is
// checked while typing is on. Exit is returned only after the user said Yes to "Are you sure
// you want to exit?".
TrayMenuCommand ShowTrayMenu(HWND owner, POINT screenPoint, bool typingOn);

// "Are you sure you want to exit?" under the title "Quilom++"; true on Yes.
bool ConfirmExit(HWND owner);

}  // namespace quilom::shell::win32
