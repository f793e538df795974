#include "shell/foreground_tracker.hpp"

namespace quilom::shell {

bool ForegroundTracker::Observe(WindowId window, std::u16string_view className, bool ownProcess) {
  if (window == 0 || ownProcess || className == kTaskbarClass || window == target_) return false;
  target_ = window;
  return true;
}

void ForegroundTracker::Forget(WindowId window) {
  if (window == target_) target_ = 0;
}

}  // namespace quilom::shell
