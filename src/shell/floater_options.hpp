#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "settings/data_folders.hpp"
#include "shell/keymap_selection.hpp"

// The floater's options list `lbxOptions` and its settings file "Settings - Floater.txt" (by
// position: the nine options in list order, "1" on, then left, top, width and height in pixels).
// The window only applies what FloaterLookOf and the hook routines decide.
//
// What each option does (decisions of this implementation):
// - "Follow the Typing": whenever the keymap changes elsewhere (hotkey, tray, main window), the
//   grid selects and scrolls to that keymap's row, so the floater always shows what is typed.
// - "Always on Top": the floater stays above other windows.
// - "Hide the Hotkeys Info", "Hide Languages", "Hide Font Encodings", "Hide Keyboards Info":
//   hide the grid's hotkey, language, encoding and keyboard columns. With the last three hidden
//   the grid shows one column of whole LFK names instead, so that no row is ever blank.
// - "Hook the Typing Window": ticking it hooks the window that was in front before the floater
//   (HookTypingWindow), unticking it unhooks. A window handle does not outlive the program, so
//   this tick is never restored from the file: the floater always starts unhooked.
// - "AutoFocus Typing Window": after a grid click the focus goes back to the window being typed
//   in (the hooked window, else the window in front before the floater).
// - "Start with Quilom++": the floater is shown when the main window loads.
namespace quilom::shell {

enum class FloaterOption : int {
  FollowTheTyping = 0,
  AlwaysOnTop,
  HideHotkeysInfo,
  HideLanguages,
  HideFontEncodings,
  HideKeyboardsInfo,
  HookTheTypingWindow,
  AutoFocusTypingWindow,
  StartWithQuilom,
};
inline constexpr int kFloaterOptionCount = 9;

// The list's entries, in list order.
inline constexpr std::array<std::u16string_view, kFloaterOptionCount> kFloaterOptionNames = {
    u"Follow the Typing",      u"Always on Top",           u"Hide the Hotkeys Info",
    u"Hide Languages",         u"Hide Font Encodings",     u"Hide Keyboards Info",
    u"Hook the Typing Window", u"AutoFocus Typing Window", u"Start with Quilom++"};

inline constexpr std::u16string_view kFloaterGuidance =
    u"For Grid-based 'focused, single-application' typing using this floater, open (or revisit, if already "
    u"opened) the application, say 'A', in which you want to type focusedly.";

// Defaults are those of the shipped file: only "Always on Top" on, at 40, 120, 300 x 460.
struct FloaterSettings {
  std::array<bool, kFloaterOptionCount> options{false, true, false, false, false, false, false, false, false};
  int left = 40;
  int top = 120;
  int width = 300;
  int height = 460;
  bool On(FloaterOption option) const { return options[static_cast<size_t>(option)]; }
  void Set(FloaterOption option, bool on) { options[static_cast<size_t>(option)] = on; }
  bool operator==(const FloaterSettings&) const = default;
};

std::filesystem::path FloaterSettingsPath(const settings::DataFolders& folders);

// A missing file, value line or number keeps the default; "Hook the Typing Window" is always
// read as off (see above). Placement values below 0 for width or height keep the default.
FloaterSettings ReadFloaterSettings(const std::filesystem::path& file);
// Writes the thirteen values over the file's value lines. Returns whether the file was written.
bool WriteFloaterSettings(const std::filesystem::path& file, const FloaterSettings& settings);

// The grid columns shown, in grid order.
struct FloaterLook {
  bool alwaysOnTop = false;
  bool followTheTyping = false;
  bool autoFocus = false;
  bool showAtStart = false;
  bool hotkeyColumn = true;
  bool languageColumn = true;
  bool encodingColumn = true;
  bool keyboardColumn = true;
  bool nameColumn = false;  // the whole LFK name, when the three parts are all hidden
  bool operator==(const FloaterLook&) const = default;
};
FloaterLook FloaterLookOf(const FloaterSettings& settings);

// The window that "AutoFocus Typing Window" gives the focus to after a grid click; 0 for none.
WindowId AutoFocusTarget(const FloaterSettings& settings, const SelectionState& state,
                         WindowId previousForegroundWindow);

enum class HookVerdict { NotFocusedMode, NoWindowToHook, Hooked };

// The message box the window shows for a hook or unhook.
struct FloaterMessage {
  std::u16string title;
  std::u16string text;
};

struct FloaterHookOutcome {
  HookVerdict verdict = HookVerdict::NotFocusedMode;
  FloaterMessage message;
};

// "Hook the Typing Window": in focused mode with a previous foreground window, hooks it into
// `state` (HookedWindow, and the one-shot focus flag that the next selection on another
// thread spends); otherwise `state` is left as it is. `title` is that window's title.
FloaterHookOutcome HookTypingWindow(SelectionState& state, WindowId previousForegroundWindow, std::u16string_view title);

// Unticking: clears HookedWindow and the one-shot flag. The message names `title`, the window
// through which the user unhooked (the one in front before the floater). Returns no message
// when no window was hooked.
FloaterMessage UnhookTypingWindow(SelectionState& state, std::u16string_view title);

}  // namespace quilom::shell
