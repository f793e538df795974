#pragma once

#include <cstdint>
#include <functional>

// Which low-level hooks are installed, kept so that exactly one keyboard hook is in place at
// any time after load: the focal (hotkeys-only) hook while typing is off, the global typing
// hook (with the mouse hook) while it is on. Installing over a non-zero handle does nothing;
// a failed install leaves the handle 0 so the next attempt retries.
namespace quilom::shell {

enum class HookKind { GlobalKeyboard, FocalKeyboard, Mouse };

// SetWindowsHookExA / UnhookWindowsHookEx behind an interface.
class HookPlatform {
 public:
  virtual ~HookPlatform() = default;
  // The new hook's handle, or 0 on failure.
  virtual std::uintptr_t Install(HookKind kind) noexcept = 0;
  virtual bool Remove(std::uintptr_t handle) noexcept = 0;
  // The system's error code for the last failed call (GetLastError).
  virtual long LastErrorCode() const noexcept = 0;
};

class HookSet {
 public:
  // `resetComposition` runs whenever typing stops.
  HookSet(HookPlatform& platform, std::function<void()> resetComposition);

  // Removes the focal hook, then installs the global keyboard hook and the mouse hook. `full`
  // picks the error tags of the typing toggle ("DT-HTI-Global") over the plain variant
  // ("DT-HTI-Global-SIMPLE"); the keymap reload and the ON notice belong to the caller. If the
  // keyboard hook cannot be installed the focal hook is put back, so the hotkeys still work.
  // Returns whether the global keyboard hook is installed afterwards.
  bool InstallGlobal(bool full);

  // Removes the global keyboard hook and the mouse hook, resets the composition and installs
  // the focal hook. The plain variant ("UNHT-I-G-SIMPLE") does exactly the same minus the
  // caller's OFF notice: both must leave one keyboard hook behind.
  void RemoveGlobal(bool full);

  void InstallFocal();  // "DT-HHKS-Focal"
  void RemoveFocal();   // "UNHFHS-I-G"
  void InstallMouse();  // "DT-HMI-Global"
  void RemoveMouse();   // "UNHM-I-G"

  // Takes every hook down (program exit).
  void RemoveAll();

  // Removes and installs again the keyboard hook that is in use (and the mouse hook with the
  // global one), for when the system may have dropped it.
  void Reinstall();

  bool GlobalInstalled() const { return globalKeyboardHook_ != 0; }
  bool FocalInstalled() const { return focalKeyboardHook_ != 0; }
  bool MouseInstalled() const { return mouseHook_ != 0; }
  std::uintptr_t GlobalKeyboardHook() const { return globalKeyboardHook_; }
  std::uintptr_t FocalKeyboardHook() const { return focalKeyboardHook_; }
  std::uintptr_t MouseHook() const { return mouseHook_; }

 private:
  void InstallInto(std::uintptr_t& handle, HookKind kind, const char16_t* tag);
  void RemoveFrom(std::uintptr_t& handle, const char16_t* tag);
  void ReplaceWithNew(std::uintptr_t& handle, HookKind kind, const char16_t* tag);

  HookPlatform& platform_;
  std::function<void()> resetComposition_;
  std::uintptr_t globalKeyboardHook_ = 0;
  std::uintptr_t focalKeyboardHook_ = 0;
  std::uintptr_t mouseHook_ = 0;
};

}  // namespace quilom::shell
