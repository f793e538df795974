#include "controls/win32/window_class.hpp"

namespace quilom::controls {

void RegisterWindowClassOnce(HINSTANCE instance, const wchar_t* className, WNDPROC procedure, HICON icon) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof(windowClass);
  if (GetClassInfoExW(instance, className, &windowClass)) return;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = instance;
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.hIcon = icon;
  windowClass.lpszClassName = className;
  RegisterClassExW(&windowClass);
}

}  // namespace quilom::controls
