#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/win32/rich_edit_box.hpp"
#include "controls/win32/ui_font.hpp"
#include "settings/data_folders.hpp"
#include "shell/foreground_tracker.hpp"
#include "shell/general_settings.hpp"
#include "shell/hotkey_number.hpp"
#include "shell/keymap_selection.hpp"
#include "shell/main_window_options.hpp"
#include "shell/typing_front.hpp"
#include "shell/typing_output.hpp"
#include "shell/win32/launch_options.hpp"
#include "shell/win32/low_level_hooks.hpp"
#include "shell/win32/notifier_player.hpp"
#include "shell/win32/system_input.hpp"
#include "shell/win32/tray_icon.hpp"
#include "shell/win32/typing_host.hpp"
#include "translit/engine.hpp"

// The main typing window: owns the typing front end and its hooks for the life of the process,
// the typing options, the keymap list, the hotkey, the tray icon and the program's own editor.
//
// Every change of typing (the start/stop button, the hotkey and a number, the tray menu and its
// middle click, the keymap list, the floater's grid) runs through one RunSelection, which asks
// KeymapSelector what to do, carries the actions out in their order and finishes the selection
// with the hook state it ended up with.
//
// Choices of this window:
// - Start-up per "inis\qm-settings.ini": "StartQuilomSilently" starts with the window hidden and
//   no start-up balloon (the tray icon is there); "StartQuilomMinimized" is not read here: despite
//   its name it holds the Excel typing option of the settings window; "BalloonTipAtStartup" shows a
//   balloon with the hotkey; "OnCloseMinimizeQuilom" makes the close box hide the window to the
//   tray, leaving Exit in the menus to end the program.
// - Escape hides the window to the tray; Enter on the keymap list selects the keymap, on the
//   hotkey list sets the hotkey. A double click on the keymap list selects too.
// - The notifier sound choice, whether sounds play, and the balloon time come from
//   "Settings - General.txt" (general_settings.hpp).
// - The tray tooltip while typing is the hooked-window, hotkey and keymap lines; the language
//   indicator is a drawn icon with the first letter of the language in its own script.
// - A selection asked for by the hotkey gives the focus back to the window in front; one from
//   the window's own button or list leaves it here.
//
// Load order: data folders; options from "Settings.txt"; the offered keymaps; the hotkey's key
// codes; the output tables and the editor's cluster probe; the focal hook; the tray icon; the
// timers. The hook comes after the tables so that no key reaches the engine before it can type.
namespace quilom::shell::win32 {

class BelovedOska final : public TypingHost {
 public:
  explicit BelovedOska(LaunchOptions options);
  ~BelovedOska() override;
  BelovedOska(const BelovedOska&) = delete;
  BelovedOska& operator=(const BelovedOska&) = delete;

  // Registers the class, creates the window, runs the load and shows it (or not, per the
  // start-up settings). False when the window cannot be created.
  bool Show(int showCommand);
  HWND Handle() const { return window_; }

  const settings::DataFolders& Folders() const { return folders_; }

  // The floater: told of every typing change, and shown or hidden by the menu entry `toggle`.
  // Called before Show; without it the menu has no floater entry.
  void AttachFloater(TypingObserver* observer, std::function<void()> toggle) {
    observer_ = observer;
    toggleFloater_ = std::move(toggle);
  }

  // TypingHost
  const std::vector<std::u16string>& OfferedKeymaps() const override { return offered_; }
  void SelectKeymapNumber(int hotkeyNumber, bool showInGrid, bool returnFocus) override;
  void SetFloaterChosenKeymap(int hotkeyNumber) override { floaterChosen_ = hotkeyNumber; }
  SelectionState& Selection() override { return selector_.State(); }
  bool TypingOn() const override { return front_.TypingOn(); }

 private:
  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
  void Load();
  void Close();
  void WriteStateFile() const;

  // beloved_oska_layout.cpp
  void CreateControls();
  void LayoutControls();
  void FillKeymapList();
  void ReloadOfferedKeymaps();
  void FillHotkeyList();
  void ShowOptions();
  void ShowGuide();
  int Scale(int value) const;

  // beloved_oska_selection.cpp
  void RunSelection(const KeymapRequest& request);
  void CarryOut(const SelectionActions& actions);
  void ApplyKeymap(const std::u16string& keymap);
  void Announce(const SelectionActions& actions);
  void StartStopGlobalTyping();
  void OnHotkeyDigit(int vk);
  void SelectListedKeymap();
  void ShowTypingState();

  // beloved_oska_options.cpp
  void OnOptionClick(int id, int code);
  void ApplyEffects(const OptionEffects& effects);
  void SetHotkey();
  void ApplyHotkeyCodes();
  void OpenHelpFile(int command);
  void ShowAbout();

  // beloved_oska_tray.cpp
  void AddTrayIcon();
  void OnTrayMessage(LPARAM mouseMessage);
  void OnMenuCommand(UINT id);
  void HideToTray();
  void ShowFromTray();
  void UpdateTrayTip();
  void PollForeground();
  void ShowStartupNotices();

  LaunchOptions launch_;
  HWND window_ = nullptr;
  int dpi_ = 96;
  int systemDpi_ = 96;  // the resolution UiFont sizes its fonts for

  // Controls.
  HWND title_ = nullptr;
  HWND guide_ = nullptr;
  HWND chartButton_ = nullptr;
  HWND gettingStartedButton_ = nullptr;
  HWND allApplications_ = nullptr;
  HWND oneApplication_ = nullptr;
  HWND instantTyping_ = nullptr;
  HWND fastEditing_ = nullptr;
  HWND smartEditing_ = nullptr;
  HWND copyPasteEditing_ = nullptr;
  HWND includeHotkeys_ = nullptr;
  HWND startStop_ = nullptr;
  HWND status_ = nullptr;
  HWND keymapLabel_ = nullptr;
  HWND keymapList_ = nullptr;
  HWND useKeymap_ = nullptr;
  HWND hotkeyLabel_ = nullptr;
  HWND hotkeyList_ = nullptr;
  HWND setHotkey_ = nullptr;
  HWND presentHotkey_ = nullptr;
  HWND tryHere_ = nullptr;
  HWND version_ = nullptr;
  std::unique_ptr<controls::RichEditBox> editor_;
  std::unique_ptr<controls::UiFont> uiFont_;
  std::unique_ptr<controls::UiFont> titleFont_;
  std::unique_ptr<controls::UiFont> tamilFont_;

  // Typing.
  settings::DataFolders folders_;
  std::vector<std::uint32_t> wordProcessIds_;
  SendInputSubmitter submitter_;
  TypingOutput output_;
  translit::Engine engine_;
  AsyncKeyState keyState_;
  TickClock clock_;
  LowLevelHookPlatform hookPlatform_;
  TypingFront front_;
  KeymapSelector selector_;
  HotkeyNumberSelector numbers_;
  std::vector<std::u16string> offered_;
  int floaterChosen_ = 0;
  std::optional<MainWindowOptions> options_;
  GeneralSettings general_;

  // Tray and foreground.
  std::unique_ptr<TrayIcon> tray_;
  std::unique_ptr<NotifierPlayer> notifier_;
  HICON appIcon_ = nullptr;
  HICON languageIcon_ = nullptr;
  ForegroundTracker foreground_;
  TypingObserver* observer_ = nullptr;
  std::function<void()> toggleFloater_;

  bool closing_ = false;
  bool loaded_ = false;
  bool active_ = false;
};

}  // namespace quilom::shell::win32
