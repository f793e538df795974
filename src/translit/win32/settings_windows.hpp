#pragma once

#include <windows.h>

#include "settings/data_folders.hpp"

// The typing settings windows and the keymap catalogue. Each entry opens its window modeless,
// owned by `owner` (which may be null), or brings it to the front when it is already open, and
// returns its handle (null when it could not be made). Escape closes each of them.
namespace quilom::translit::win32 {

// `qmset`: the five sections of "inis\qm-settings.ini", a category list on the left and the
// category's boxes on the right. Every click writes its key at once; the copy of the ini file
// in "pelandr\inis\" is the one read and written (IniSettings), so the per-user copy wins over
// the one beside the executable.
HWND ShowTypingSettingsWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders);

// `qmset2`: the keys of "inis\qm-setkeys.txt" as check boxes ticked from "inis\qm-settings-2.ini",
// "Restore Defaults" (puts the factory ".replica" back) and "Help", which opens the options help
// page "Indic Direct Typer\inis\qm-settings-help.html" with its default handler.
HWND ShowTypingSettingsMoreWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders);

// `qmAllXmls`: the catalogue of LFKs. "Finalize" writes the rows shown as the "Finalized" list
// and then posts OfferedKeymapsChangedMessage() to `owner` (wParam: the number of rows written,
// lParam 0), so that the main window reloads what it offers and tells the floater.
HWND ShowKeymapCatalogueWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders);

// The registered message "Quilom++ Offered Keymaps Changed"; the same number in every process.
UINT OfferedKeymapsChangedMessage();

// The registered message "Quilom++ Typing Settings Changed", posted to the owner of `qmset` and
// `qmset2` after each click that wrote a setting (wParam and lParam 0), so that typing under way
// takes the new setting at once rather than at the next keymap switch.
UINT TypingSettingsChangedMessage();

// Posts TypingSettingsChangedMessage() to `window`'s owner, if it has one.
void TellOwnerSettingsChanged(HWND window);

}  // namespace quilom::translit::win32
