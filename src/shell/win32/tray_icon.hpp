#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include <shellapi.h>

#include <string>
#include <string_view>

#include "shell/tray_texts.hpp"

// The program's icon in the notification area. Added by Add, removed by the destructor (or
// Remove); put back by HandleTaskbarCreated when Explorer restarts. Balloons are hidden again
// by a window timer on the owner window, so the owner's WM_TIMER must pass its ids to OnTimer.
//
// The icon uses the original notification protocol (no NIM_SETVERSION), so the callback
// message's lParam is the mouse message itself: WM_LBUTTONUP, WM_RBUTTONUP, WM_MBUTTONUP.
namespace quilom::shell::win32 {

// Decision of ours: a balloon stays 4 seconds, long enough to read the keymap name, short
// enough not to sit over the user's work while typing.
inline constexpr UINT kBalloonTimeoutMs = 4000;

class TrayIcon {
 public:
  // `timerId` is the owner's timer that hides balloons; it must not clash with its other timers.
  TrayIcon(HWND owner, UINT callbackMessage, UINT iconId, UINT_PTR timerId);
  ~TrayIcon();
  TrayIcon(const TrayIcon&) = delete;
  TrayIcon& operator=(const TrayIcon&) = delete;

  // Puts the icon up with `icon` and `tip` (cut to the tooltip limit). False when the shell
  // refused; the icon is then tried again on the next "TaskbarCreated".
  bool Add(HICON icon, std::u16string_view tip);
  bool SetTip(std::u16string_view tip);
  // Changes the icon and its tip together (the language indicator while typing).
  bool SetIcon(HICON icon, std::u16string_view tip);
  // How long balloons stay up from now on (kBalloonTimeoutMs until set).
  void SetBalloonTimeout(UINT milliseconds) { balloonTimeoutMs_ = milliseconds; }
  // Shows a balloon and starts the timer that hides it after the balloon time-out.
  bool ShowBalloon(const BalloonText& balloon);
  // Hides the balloon now. Returns true when `timerId` was ours (the owner need not look further).
  bool OnTimer(UINT_PTR timerId);
  // The owner's window procedure passes every message here; true when it was the taskbar's
  // restart and the icon was put back.
  bool HandleTaskbarCreated(UINT message);
  void Remove();
  // Where the icon is on the screen, when the shell can tell.
  bool ScreenRect(RECT& rect) const;
  bool Shown() const { return shown_; }

 private:
  NOTIFYICONDATAW BaseData(UINT flags) const;
  void HideBalloon();

  HWND owner_;
  UINT callbackMessage_;
  UINT iconId_;
  UINT_PTR timerId_;
  UINT taskbarCreated_;
  HICON icon_ = nullptr;
  std::u16string tip_;
  bool shown_ = false;
  UINT balloonTimeoutMs_ = kBalloonTimeoutMs;
};

}  // namespace quilom::shell::win32
