#pragma once

#include <string_view>

#include "shell/keymap_selection.hpp"

// The main window's poller follows the window in front, so that the floater can hook "the
// window that was in front before" and the tray tooltip can name it. The taskbar
// ("Shell_TrayWnd") and the program's own windows are never taken: clicking the tray icon or
// the floater must not make them the target.
namespace quilom::shell {

inline constexpr std::u16string_view kTaskbarClass = u"Shell_TrayWnd";

class ForegroundTracker {
 public:
  // One poll: the window in front, its class name and whether it belongs to this process.
  // Returns whether the remembered target changed.
  bool Observe(WindowId window, std::u16string_view className, bool ownProcess);
  // The last window in front that was a fit target; 0 before any.
  WindowId Target() const { return target_; }
  // Forgets a window that has gone.
  void Forget(WindowId window);

 private:
  WindowId target_ = 0;
};

}  // namespace quilom::shell
