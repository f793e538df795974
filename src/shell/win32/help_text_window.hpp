#pragma once

#include <windows.h>

#include <filesystem>

// Shows a help page or keymap chart as readable text in a window of our own, for systems where no
// browser or picture viewer takes the file.
namespace quilom::shell::win32 {

// The window owns itself and goes when closed; `owner` stays usable meanwhile.
void ShowHelpTextWindow(HWND owner, const std::filesystem::path& file);

}  // namespace quilom::shell::win32
