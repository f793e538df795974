#include "shell/focused_typing.hpp"

namespace quilom::shell {

bool TypingLimitedToHookedWindow(const SelectionState& state) {
  return state.FocusedMode == kFocusedOnOneApplication && state.HookedWindow != 0;
}

bool TypingReachesForeground(const SelectionState& state, ThreadId foregroundThread, ThreadId hookedWindowThread) {
  if (!TypingLimitedToHookedWindow(state)) return true;
  return hookedWindowThread != 0 && foregroundThread == hookedWindowThread;
}

bool FocusGate::Changed(bool reaches) {
  const bool changed = reaches != last_;
  last_ = reaches;
  return changed;
}

}  // namespace quilom::shell
