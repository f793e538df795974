#include "shell/win32/single_instance.hpp"

#include "controls/win32/wide_text.hpp"
#include "shell/app_identity.hpp"

namespace quilom::shell::win32 {

SingleInstance::SingleInstance() {
  mutex_ = CreateMutexW(nullptr, FALSE, controls::ToWide(kSingleInstanceMutex).c_str());
  anotherRunning_ = mutex_ != nullptr && GetLastError() == ERROR_ALREADY_EXISTS;
}

SingleInstance::~SingleInstance() {
  if (mutex_ != nullptr) CloseHandle(mutex_);
}

bool ActivateRunningCopy() {
  HWND window = FindWindowW(controls::ToWide(kMainWindowClass).c_str(), controls::ToWide(kMainWindowCaption).c_str());
  if (window == nullptr) return false;
  ShowWindow(window, SW_RESTORE);
  SetForegroundWindow(window);
  return true;
}

}  // namespace quilom::shell::win32
