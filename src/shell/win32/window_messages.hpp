#pragma once

#include <windows.h>

// The main window's own messages and control ids.
// Older headers stop short of the per-monitor resolution message.
#ifndef WM_DPICHANGED
#define WM_DPICHANGED 0x02E0
#endif

namespace quilom::shell::win32 {

// The tray icon's callback; lParam is the mouse message.
inline constexpr UINT kTrayCallbackMessage = WM_APP + 1;
// A keymap number chosen with the hotkey and digits (wParam). Posted from inside the hook
// callback: the selection installs and removes hooks, which must not happen inside one.
inline constexpr UINT kHotkeyNumberMessage = WM_APP + 2;
inline constexpr UINT kTrayIconId = 1;
inline constexpr UINT_PTR kBalloonTimer = 4;

enum ControlId : int {
  kStartStopId = 101,
  kEditorId,
  kAllApplicationsId,
  kOneApplicationId,
  kInstantTypingId,
  kFastEditingId,
  kSmartEditingId,
  kCopyPasteEditingId,
  kIncludeHotkeysId,
  kKeymapListId,
  kUseKeymapId,
  kHotkeyListId,
  kSetHotkeyId,
  kChartButtonId,
  kGettingStartedButtonId,
};

}  // namespace quilom::shell::win32
