#pragma once

#include <windows.h>

#include <functional>
#include <span>
#include <string_view>

#include "settings/data_folders.hpp"

// The windows the typing program opens from its Tools and Settings menus (main window and tray).
// Each opens modeless, owned by the main window, or comes to the front when already open.
namespace quilom::shell::win32 {

enum class AppWindow {
  FontsConverter,
  ReverseTransliteration,
  ReverseCompanion,
  AutoTransliterator,
  AutoTransliteratorSideBySide,
  UrlNormalizer,
  StartupLink,
  TypingSettings,
  TypingSettingsMore,
  KeymapCatalogue,
};

enum class AppMenu { Tools, Settings };

struct AppWindowEntry {
  AppWindow window;
  AppMenu menu;
  std::wstring_view caption;  // the menu entry, with its mnemonic
};

// Every window, in menu order; an entry whose window is not built into this program is absent.
std::span<const AppWindowEntry> AppWindowEntries();

// What the windows need from the program around them.
struct AppWindowContext {
  HINSTANCE instance = nullptr;
  HWND owner = nullptr;
  settings::DataFolders folders;
  // Runs after the auto transliterator converts a text: the live engine forgets its buffer.
  std::function<void()> afterBatchConversion;
};

// Opens `window`; returns its handle, null when it could not be made (already reported).
HWND OpenAppWindow(AppWindow window, const AppWindowContext& context);

// Keyboard navigation for the open windows that rely on the caller's loop. The message loop
// calls it before TranslateMessage; true means the message was handled.
bool RouteAppWindowMessage(MSG& message);

// Appends one entry per window of `menu` to `popup`, with command ids `firstId` + index into
// AppWindowEntries(); CommandToAppWindow maps such an id back.
void AppendAppWindowItems(HMENU popup, AppMenu menu, UINT firstId);
bool CommandToAppWindow(UINT id, UINT firstId, AppWindow& window);

}  // namespace quilom::shell::win32
