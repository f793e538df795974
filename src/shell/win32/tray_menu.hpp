#pragma once

#include <windows.h>

// The tray icon's menu (`frmTm`): Start/Stop global typing, Tools and Settings (submenus of the
// tool and settings windows), About, Hide, Exit. Its ids are the main menu's (main_menu.hpp).
namespace quilom::shell::win32 {

// Shows the menu at `screenPoint` (the cursor when the user right-clicked the icon) and
// returns the chosen command id, 0 when the menu was dismissed. Exit (kCmdExit) is returned
// only after the user said Yes to "Are you sure you want to exit?".
UINT ShowTrayMenu(HWND owner, POINT screenPoint, bool typingOn);

// "Are you sure you want to exit?" under the title "Quilom++"; true on Yes.
bool ConfirmExit(HWND owner);

}  // namespace quilom::shell::win32
