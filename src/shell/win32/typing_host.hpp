#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "shell/keymap_selection.hpp"

// What the floater (`BelovedOskaGrace`) asks of the main window, and what the main window tells
// the floater. The main window owns the typing state; the floater only shows it and asks for
// selections, so one SelectKeymap serves the grid, the hotkeys, the tray and the button alike.
namespace quilom::shell::win32 {

class TypingHost {
 public:
  virtual ~TypingHost() = default;

  // The keymaps the main window offers ("Settings-Lfks-Finalized.txt"), hotkey number n at n-1.
  virtual const std::vector<std::u16string>& OfferedKeymaps() const = 0;

  // Runs SelectKeymap for the keymap with hotkey number `hotkeyNumber` (1-based), as a grid
  // click does; `returnFocus` gives the focus back to the window in front before.
  virtual void SelectKeymapNumber(int hotkeyNumber, bool showInGrid, bool returnFocus) = 0;

  // The keymap a 0 after the hotkey applies (the grid's chosen row), 1-based; 0 for none.
  virtual void SetFloaterChosenKeymap(int hotkeyNumber) = 0;

  // The selection state, for hooking and unhooking the typing window in focused mode.
  virtual SelectionState& Selection() = 0;
  virtual bool TypingOn() const = 0;
};

// The floater as the main window sees it.
class TypingObserver {
 public:
  virtual ~TypingObserver() = default;
  // Typing went on or off, or to another keymap (`activeKeymap` empty while off).
  virtual void OnTypingChanged(bool typingOn, const std::u16string& activeKeymap) = 0;
  // The offered list changed (a new "Finalized" list was written).
  virtual void OnOfferedKeymapsChanged() = 0;
  // For the state file a test reads: shown, topmost and "Hook the Typing Window" ticked, as 0/1.
  virtual std::string StateBits() const = 0;
};

}  // namespace quilom::shell::win32
