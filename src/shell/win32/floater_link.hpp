#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "settings/data_folders.hpp"
#include "shell/win32/typing_host.hpp"

// The floater as the program's start-up sees it: made here so that the floater's own headers and
// the main window's typing front end never meet in one translation unit.
namespace quilom::shell::win32 {

struct FloaterLink {
  std::unique_ptr<TypingObserver> floater;
  std::function<void()> toggle;       // the show/hide menu entry
  std::function<void()> showIfAsked;  // "Start with Quilom++": shows it at start
};

FloaterLink MakeFloater(HINSTANCE instance, TypingHost& host, const settings::DataFolders& folders);

}  // namespace quilom::shell::win32
