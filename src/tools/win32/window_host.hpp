#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "settings/data_folders.hpp"

// The small host programs that open windows alone, without the typing program: for trying them
// out and for the end-to-end tests. Command line: [--data DIR] --window NAME [--window NAME ...].
// --data names another data root; the program folder stays the host's own, so anything that
// points at a program (the start-up link) points beside the host. Ends when the last window of
// the text tools' kind closes. --captions FILE has the host write the captions of all its
// windows and their controls to FILE, five times a second, for a test to read.
namespace quilom::tools::win32 {

struct WindowHost {
  std::wstring defaultWindow;  // opened when no --window is given
  std::wstring knownNames;     // "rt, rt2 or url": for the message about an unknown name
  // Opens the window called `name`; false for a name it does not know.
  std::function<bool(const std::wstring& name, HINSTANCE instance, const settings::DataFolders& folders)> open;
};

// Returns the process exit code: 0, or 2 after telling the user about an unknown window name.
int RunWindowHost(HINSTANCE instance, const WindowHost& host);

}  // namespace quilom::tools::win32
