#pragma once

#include <windows.h>

#include <string>

#include "settings/data_folders.hpp"
#include "shell/floater_options.hpp"
#include "shell/foreground_tracker.hpp"
#include "shell/win32/typing_host.hpp"

// The floater: a small window beside the user's work offering the keymaps of the main window in
// a grid (`flx1`), with its options list (`lbxOptions`) below. It owns no typing state: a grid
// click asks the host to select, and the host tells the floater what typing does.
//
// Choices of this window (the options themselves are described in floater_options.hpp):
// - Closing the floater hides it; the window lives until the object is destroyed, so the main
//   window's show/hide entry finds it as it was left.
// - "The window in front before the floater" is tracked by the floater itself while it exists,
//   four times a second, with the rules of ForegroundTracker: the windows of this program and
//   the taskbar are never offered for hooking.
// - A click on a grid row selects that keymap; so does Enter or a double click on it. The
//   chosen row is also handed to the host as the keymap a 0 after the hotkey applies.
// - The options and the placement are written to "Settings - Floater.txt" at once when an
//   option changes and whenever a move or resize ends.
namespace quilom::shell::win32 {

class BelovedOskaGrace final : public TypingObserver {
 public:
  BelovedOskaGrace(HINSTANCE instance, TypingHost& host, const settings::DataFolders& folders);
  ~BelovedOskaGrace() override;
  BelovedOskaGrace(const BelovedOskaGrace&) = delete;
  BelovedOskaGrace& operator=(const BelovedOskaGrace&) = delete;

  // Shows the floater (making it on the first call) without taking the focus from the window
  // the user types in. False when the window could not be made (already reported).
  bool Show();
  void Hide();
  bool Visible() const;
  HWND Handle() const { return window_; }

  // Whether "Start with Quilom++" is ticked: the main window shows the floater at its load then.
  static bool ShowsAtStartup(const settings::DataFolders& folders);

  // The grid's chosen row as a hotkey number (1-based); 0 when no row is chosen.
  int ChosenKeymapNumber() const { return chosenNumber_; }

  void OnTypingChanged(bool typingOn, const std::u16string& activeKeymap) override;
  std::string StateBits() const override;
  void OnOfferedKeymapsChanged() override;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  LRESULT Dispatch(UINT message, WPARAM wParam, LPARAM lParam);
  void CreateControls();
  void Layout(int width, int height);
  void FillOptions();
  void BuildColumns();
  void FitLastColumn();
  void FillGrid();
  void ApplyLook();
  void ApplyTopmost();
  void ReassertTopmost();
  void SyncHookTick();
  void OnNotify(const NMHDR& header);
  void OnOptionToggled(int option, bool on);
  void OnHookToggled(bool on);
  void SelectRow(int row);
  void ShowRowOf(const std::u16string& keymap);
  void TrackForeground();
  HWND PreviousForeground() const;
  void SavePlacement();
  void Save();
  void ShowMessage(const FloaterMessage& message) const;
  // Lengths given at 96 DPI, in pixels at the system's DPI (the font follows it).
  int Px(int units) const { return MulDiv(units, dpi_, 96); }
  std::u16string PreviousTitle() const;

  HINSTANCE instance_;
  TypingHost& host_;
  settings::DataFolders folders_;
  FloaterSettings settings_;
  HWND lastFront_ = nullptr;  // the foreground window at the last look
  HWND window_ = nullptr;
  HWND guidance_ = nullptr;
  HWND grid_ = nullptr;
  HWND options_ = nullptr;
  HWND status_ = nullptr;
  HFONT font_ = nullptr;
  int dpi_ = 96;
  ForegroundTracker foreground_;
  int chosenNumber_ = 0;
  bool fillingOptions_ = false;
  bool typingOn_ = false;
  std::u16string activeKeymap_;
};

}  // namespace quilom::shell::win32
