#pragma once

#include <windows.h>

// The plain window class every top-level window of ours is made from: arrow cursor, dialog-face
// background, `icon` (none for a tool window's caption).
namespace quilom::controls {

// Registers `className` the first time; later calls find it registered and do nothing.
void RegisterWindowClassOnce(HINSTANCE instance, const wchar_t* className, WNDPROC procedure, HICON icon = nullptr);

}  // namespace quilom::controls
