#pragma once

#include "shell/keymap_selection.hpp"

// Where typed keys go in one-application mode. Once the floater has hooked a window, only the
// thread that owns it gets the keymap's letters: keys typed into any other window pass as if
// typing were off (the hotkeys still work there), so the other applications keep their own
// keyboard. Until a window is hooked, and in all-applications mode, typing goes to whichever
// window is in front.
//
// Decision of ours: when the hooked window has gone (its thread reads as 0), no window gets the
// keymap any more; the user hooks another through the floater. Letters suddenly changing
// language in an unrelated application would be the worse surprise.
namespace quilom::shell {

bool TypingReachesForeground(const SelectionState& state, ThreadId foregroundThread, ThreadId hookedWindowThread);

// Whether the answer can differ from "yes" at all, so the caller looks up the two threads only
// when it must.
bool TypingLimitedToHookedWindow(const SelectionState& state);

// Follows the answers key by key, so that the composition is broken when typing leaves the
// hooked window or comes back to it: a syllable begun in one window never ends in another.
class FocusGate {
 public:
  // Returns true when the verdict differs from the previous key's.
  bool Changed(bool reaches);

 private:
  bool last_ = true;
};

}  // namespace quilom::shell
