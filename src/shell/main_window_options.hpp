#pragma once

#include <string>
#include <string_view>

#include "settings/tool_settings.hpp"
#include "shell/keymap_selection.hpp"
#include "shell/typing_front_state.hpp"

// The main window's typing options and how each click changes and stores them. Every option is
// written to "Settings.txt" at its own click ("1" on, "0" off, the hotkey as its text), so a crash
// loses nothing already chosen; a failed write leaves the option in effect for this run.
//
// Decisions of ours:
// - "Global Typing" stores the hooking type: "1" for typing in all applications, anything else
//   for typing focused on one application.
// - "Instant Typing" on at load starts typing in the first offered keymap as soon as the window
//   is up, so a user who types Tamil all day need not press anything.
// - Choosing typing focused on one application while global typing is on turns global typing
//   off first (through the ordinary selection), so the button's caption "'Start' Global Typing"
//   is also the truth about the hooks.
// - "Smart Editing": Backspace reaches the application and edits the composition, so that the
//   next key re-forms the syllable ("kaa", Backspace, "i" gives the consonant with the i sign).
// - "Fast Editing": one Backspace erases the whole letter before the caret (its consonant and
//   every sign after it) within the text typed since the composition last broke; alone it then
//   ends the composition, with "Smart Editing" the next key joins the letter now before the caret.
// - "Include Hotkeys" off: the completed hotkey alone does what hotkey and 1 would (typing on in
//   the first keymap, or off); the digits after it are text.
// - "CopyPaste Editing": each edit's text is pasted through the clipboard (Backspaces first,
//   then Ctrl+V) instead of typed as Unicode presses, for applications that refuse those; the
//   user's clipboard text is given back once the application has read ours.
namespace quilom::shell {

inline constexpr std::u16string_view kGlobalTypingKey = u"Global Typing";
inline constexpr std::u16string_view kInstantTypingKey = u"Instant Typing";
inline constexpr std::u16string_view kFastEditingKey = u"Fast Editing";
inline constexpr std::u16string_view kSmartEditingKey = u"Smart Editing";
inline constexpr std::u16string_view kCopyPasteEditingKey = u"CopyPaste Editing";
inline constexpr std::u16string_view kIncludeHotkeysKey = u"Include Hotkeys";
inline constexpr std::u16string_view kPresentHotkeyKey = u"Present Hotkey";
inline constexpr std::u16string_view kDefaultHotkey = u"Alt+F12";
// The marker the "Include Hotkeys" box carries while the program itself sets it.
inline constexpr std::u16string_view kIgnoreMarker = u"ignore";

enum class OptionBox { InstantTyping, FastEditing, SmartEditing, CopyPasteEditing, IncludeHotkeys };

struct MainOptions {
  int FocusedMode = kTypingInAllApplications;
  bool instantTyping = false;
  int FastEditing = 0;
  bool smartEditing = false;
  bool copyPasteEditing = false;
  bool includeHotkeys = true;
  std::u16string presentHotkey{kDefaultHotkey};
  bool operator==(const MainOptions&) const = default;
};

// What the window must do after a click beside showing the new state of every box.
struct OptionEffects {
  bool stopGlobalTypingFirst = false;  // run the OFF selection before the mode changes
  bool clearHookedWindow = false;      // HookedWindow = 0
  bool refreshGrid = false;            // the floater's grid shows the new mode
};

class MainWindowOptions {
 public:
  explicit MainWindowOptions(settings::ToolSettings store);

  // Reads every key; a missing key keeps its default. The "Include Hotkeys" box carries the
  // ignore marker while it is being set, so the load itself stores nothing.
  void Load();
  const MainOptions& Options() const { return options_; }
  // What the hooks follow of the options.
  EditingChoices Editing() const;

  // The hooking type pair: `mode` 1 (one application) or 2 (all applications); other values
  // change nothing. `typingOn` tells whether the global hooks are in.
  OptionEffects ClickHookingType(int mode, bool typingOn);
  // A check box click leaving the box `checked`. "Instant Typing" checked also selects typing in
  // all applications. A click on "Include Hotkeys" while it carries the ignore marker is ignored.
  OptionEffects ClickBox(OptionBox box, bool checked);
  // Stores an accepted hotkey text (or "None").
  void StoreHotkey(std::u16string_view hotkeyText);

  void SetIgnoreMarker(bool on) { ignoreIncludeHotkeys_ = on; }
  bool IgnoreMarker() const { return ignoreIncludeHotkeys_; }

 private:
  void Store(std::u16string_view key, bool on) const;

  settings::ToolSettings store_;
  MainOptions options_;
  bool ignoreIncludeHotkeys_ = false;
};

}  // namespace quilom::shell
