#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

#include "converter/window/word_connection.hpp"

// The fonts converter window: the From and To encodings, the Unicode and legacy fonts, the
// options, Convert, Swap Encodings, Regenerate Fonts List, and the quote converter.
//
// The window is modeless and owned by `owner`. It needs no help from the caller's message
// loop: while it is open it watches its own thread's messages for Tab, arrow and mnemonic
// keys. Its choices are saved in "Settings.txt" of the converter data folder at every click
// and restored when it opens.
//
// Choices made here for the user:
//   - The legacy fonts list follows the legacy side of the selection: a click in From or To
//     fills it for the clicked list's encoding, or, when that is "Unicode", for the other
//     list's encoding, so picking "Unicode" as the target never empties it.
//   - At opening the lists are filled, the saved positions applied (From and To first, then
//     the legacy fonts list is filled for them, then its saved position), and then the quote
//     lists are filled, so that they show the restored selection.
//   - A position saved for a list that has fewer rows now selects nothing.
namespace quilom::converter::win32 {

struct ConverterWindowOptions {
  // The data root ("Sorvin"); empty: the "Sorvin" folder beside the executable.
  std::filesystem::path dataRoot;
  // Reaches Word; null: the running "Word.Application". The test host injects a stand-in.
  std::shared_ptr<window::WordConnector> connector;
  // Sees every message box text before it is shown (the test host logs them).
  std::function<void(std::u16string_view)> messageWitness;
};

// Opens the window, or brings it to the front when it is already open, and returns it.
// Null when the window could not be made (reported with "App Load").
HWND ShowConverterWindow(HINSTANCE instance, HWND owner, const ConverterWindowOptions& options = {});

}  // namespace quilom::converter::win32
