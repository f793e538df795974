#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/data_folders.hpp"
#include "shell/hotkey_number.hpp"
#include "shell/keymap_selection.hpp"

// The keymaps the main window offers and the numbers the hotkey digits reach them by: the list
// "Settings-Lfks-Finalized.txt" in its order, keymap n at position n-1.
//
// Decision of ours: when the finalised list is missing or empty the "Original" list is offered,
// and when that is missing too the Tamil phonetic scheme alone, so that a fresh or damaged
// installation still types Tamil with the hotkey and 1.
namespace quilom::shell {

inline constexpr std::u16string_view kDefaultKeymap = u"Tamil-Unicode-PhoneticTransliteration";

std::vector<std::u16string> LoadOfferedKeymaps(const settings::DataFolders& folders);

// "n  name", the row the keymap list shows.
std::u16string KeymapListLabel(int hotkeyNumber, std::u16string_view name);

// The 1-based number of `name` in `offered`, 0 when it is not offered.
int HotkeyNumberOf(const std::vector<std::u16string>& offered, std::u16string_view name);

// The selection for keymap number `hotkeyNumber`; nothing for a number outside the list.
std::optional<KeymapRequest> RequestForNumber(const std::vector<std::u16string>& offered, int hotkeyNumber,
                                              bool showInGrid, bool returnFocus);

// The keymap number a digit after the hotkey asks for: the selected index, or for a lone 0 the
// floater's chosen keymap (`floaterChosen`, 0 when it has none). 0 when nothing is to happen.
int NumberForDigit(const DigitOutcome& outcome, int floaterChosen);

// What the start/stop button and the tray's start/stop entry select: the floater's chosen
// keymap; else, while typing is on, the keymap in use (so the selection turns typing off even
// when that keymap has left the list); else keymap 1. Nothing when nothing is offered and
// typing is off.
std::optional<KeymapRequest> ToggleRequest(const std::vector<std::u16string>& offered, int floaterChosen,
                                           const SelectionState& state);

// The selection that turns typing off: the keymap in use chosen again, numbered as the list
// numbers it (0 when it is no longer offered).
KeymapRequest ActiveKeymapRequest(const std::vector<std::u16string>& offered, const SelectionState& state);

}  // namespace quilom::shell
