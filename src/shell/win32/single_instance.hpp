#pragma once

#include <windows.h>

// One running copy per user session. The first copy holds a named mutex for its whole life; a
// later copy finds the mutex taken, brings the first copy's main window back (restored from
// minimised) to the front, and ends without creating anything of its own.
namespace quilom::shell::win32 {

class SingleInstance {
 public:
  SingleInstance();
  ~SingleInstance();
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  bool AnotherCopyRunning() const { return anotherRunning_; }

 private:
  HANDLE mutex_ = nullptr;
  bool anotherRunning_ = false;
};

// Finds the first copy's window by our class and the exact fixed caption (a window whose
// caption was changed is not found), restores and fronts it. Returns whether it was found.
bool ActivateRunningCopy();

}  // namespace quilom::shell::win32
