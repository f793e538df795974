#pragma once

#include <cstdint>
#include <string>

// `SelectKeymap`: the one routine that switches typing on, off and between keymaps. It is
// reached from the start/stop button, the tray menu, the floater's grid and the hotkey digits.
// The core only decides; the Win32 layer carries out the returned actions in the order their
// fields are listed, then calls FinishSelection with the hook state it ended up with.
namespace quilom::shell {

// Window and thread identities as the Win32 layer sees them (HWND and thread id widened).
using WindowId = std::uintptr_t;
using ThreadId = std::uint32_t;

inline constexpr int kFocusedOnOneApplication = 1;
inline constexpr int kTypingInAllApplications = 2;

enum class SelectionBalloon { None, TypingOn, TypingOff };

// One selection as its caller asks for it.
struct KeymapRequest {
  std::u16string SelectedKeymap;  // the keymap (LFK) name chosen
  int hotkeyNumber = 0;           // its number in the keymap list, shown in the balloon
  bool showInGrid = false;        // make the floater's grid show the chosen row
  bool returnFocus = false;       // the return-focus option
};

// What the foreground looked like when the selection began (GetGUIThreadInfo), and the thread
// that owns HookedWindow (GetWindowThreadProcessId), both read by the Win32 layer.
struct ForegroundInfo {
  WindowId ForegroundWindow = 0;
  ThreadId ForegroundThread = 0;
  ThreadId hookedWindowThread = 0;
};

// The decisions, in the order the Win32 layer carries them out.
struct SelectionActions {
  bool ignoredWhileBusy = false;  // another selection is running: nothing else is set
  bool showRowInGrid = false;
  bool removeHooks = false;       // global hooks out, focal hook in (typing OFF)
  bool reinstallHooks = false;    // global hooks out and in again (focused mode, new thread)
  bool installHooks = false;      // global hooks in if missing (typing ON)
  std::u16string keymapToApply;   // empty: keep the keymap in use
  SelectionBalloon balloon = SelectionBalloon::None;
  std::u16string balloonKeymap;   // the keymap the balloon names
  int balloonHotkeyNumber = 0;
  WindowId giveFocusTo = 0;       // 0: leave the focus where it is
};

// The typing front end's view of typing, kept across selections.
struct SelectionState {
  bool globalHookInstalled = false;
  std::u16string ActiveKeymap;
  int FocusedMode = kTypingInAllApplications;
  WindowId HookedWindow = 0;
  bool SelectionBusy = false;
  // Set by the floater when it hooks a window; the first selection on another thread spends it.
  bool oneShotFocus = false;
};

class KeymapSelector {
 public:
  const SelectionState& State() const { return state_; }
  SelectionState& State() { return state_; }

  // Decides one selection and marks the selector busy until FinishSelection:
  // - focused mode with a hooked window whose thread is not the foreground thread: the hooks
  //   are re-installed (and the one-shot focus flag cleared); focused mode always applies the
  //   keymap. Decision of ours: in focused mode with no hooks in place they are installed, so
  //   that a grid click always leaves typing on in the chosen keymap.
  // - otherwise, typing on and the chosen keymap equal to ActiveKeymap: typing goes OFF (one
  //   hotkey both starts and stops a language).
  // - otherwise typing goes ON in the chosen keymap (hooks installed if missing).
  // A balloon announces every change: ON names the new keymap, OFF the one that was in use.
  // A request made while a selection is still running (a hotkey caught while the Win32 layer
  // lets pending messages run) is ignored, so one selection never interleaves with another.
  SelectionActions SelectKeymap(const KeymapRequest& request, const ForegroundInfo& foreground);

  // Ends the running selection. `globalHookInstalled` is what the Win32 layer ended up with:
  // when an install failed, typing stays OFF and ActiveKeymap is kept as it was.
  void FinishSelection(bool globalHookInstalled);

 private:
  SelectionActions Decide(const KeymapRequest& request, const ForegroundInfo& foreground);

  SelectionState state_;
  std::u16string pendingKeymap_;
};

}  // namespace quilom::shell
