#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "settings/data_folders.hpp"

// The few lines the main window shows a new typist, and the help files it may open.
namespace quilom::shell {

// How to start typing: the hotkey from "Present Hotkey" followed by the keymap's number (the
// first offered keymap as the example), the same again to stop, and the tray icon's three
// clicks. With no hotkey ("None" or empty) the lines point to the button and the set-hotkey
// list instead. Lines are separated by CR LF, as a static control breaks them.
std::u16string FirstRunGuide(std::u16string_view presentHotkey, std::u16string_view firstKeymap);

// The keymap's chart, "help\charts\" + name + ".svg" in the main data folder; nothing when the
// file does not exist.
std::optional<std::filesystem::path> KeymapChartPath(const settings::DataFolders& folders, std::u16string_view keymap);

// "help\getting-started.html" in the main data folder; nothing when it does not exist.
std::optional<std::filesystem::path> GettingStartedPath(const settings::DataFolders& folders);

// Whether `file` lies inside the data root once both are made absolute and normal, so that a
// name with ".." or a link can never make the program hand an outside file to the shell.
bool IsInsideDataRoot(const settings::DataFolders& folders, const std::filesystem::path& file);

}  // namespace quilom::shell
