#include "shell/win32/tray_icon.hpp"

#include <shellapi.h>

#include <algorithm>

namespace quilom::shell::win32 {

namespace {

template <std::size_t N>
void CopyInto(WCHAR (&target)[N], std::u16string_view text) {
  const std::u16string fitted = FitText(text, N - 1);
  std::copy(fitted.begin(), fitted.end(), target);
  target[fitted.size()] = L'\0';
}

}  // namespace

TrayIcon::TrayIcon(HWND owner, UINT callbackMessage, UINT iconId, UINT_PTR timerId)
    : owner_(owner),
      callbackMessage_(callbackMessage),
      iconId_(iconId),
      timerId_(timerId),
      taskbarCreated_(RegisterWindowMessageW(L"TaskbarCreated")) {}

TrayIcon::~TrayIcon() { Remove(); }

NOTIFYICONDATAW TrayIcon::BaseData(UINT flags) const {
  NOTIFYICONDATAW data{};
  data.cbSize = sizeof(data);
  data.hWnd = owner_;
  data.uID = iconId_;
  data.uFlags = flags;
  return data;
}

bool TrayIcon::Add(HICON icon, std::u16string_view tip) {
  icon_ = icon;
  tip_ = std::u16string(tip);
  NOTIFYICONDATAW data = BaseData(NIF_MESSAGE | NIF_ICON | NIF_TIP);
  data.uCallbackMessage = callbackMessage_;
  data.hIcon = icon_;
  CopyInto(data.szTip, tip_);
  shown_ = Shell_NotifyIconW(NIM_ADD, &data) != FALSE;
  return shown_;
}

bool TrayIcon::SetTip(std::u16string_view tip) {
  tip_ = std::u16string(tip);
  if (!shown_) return false;
  NOTIFYICONDATAW data = BaseData(NIF_TIP);
  CopyInto(data.szTip, tip_);
  return Shell_NotifyIconW(NIM_MODIFY, &data) != FALSE;
}

bool TrayIcon::SetIcon(HICON icon, std::u16string_view tip) {
  icon_ = icon;
  tip_ = std::u16string(tip);
  if (!shown_) return false;
  NOTIFYICONDATAW data = BaseData(NIF_ICON | NIF_TIP);
  data.hIcon = icon_;
  CopyInto(data.szTip, tip_);
  return Shell_NotifyIconW(NIM_MODIFY, &data) != FALSE;
}

bool TrayIcon::ShowBalloon(const BalloonText& balloon) {
  if (!shown_) return false;
  NOTIFYICONDATAW data = BaseData(NIF_INFO);
  CopyInto(data.szInfoTitle, balloon.title);
  CopyInto(data.szInfo, balloon.text);
  data.dwInfoFlags = NIIF_INFO;
  data.uTimeout = balloonTimeoutMs_;  // read by older shells only; the timer below rules
  if (Shell_NotifyIconW(NIM_MODIFY, &data) == FALSE) return false;
  // Newer shells keep a balloon up for the user's accessibility time-out, whatever we ask:
  // the timer takes it down so that a quick run of hotkeys does not stack balloons.
  SetTimer(owner_, timerId_, balloonTimeoutMs_, nullptr);
  return true;
}

void TrayIcon::HideBalloon() {
  if (!shown_) return;
  NOTIFYICONDATAW data = BaseData(NIF_INFO);
  data.szInfo[0] = L'\0';
  data.szInfoTitle[0] = L'\0';
  Shell_NotifyIconW(NIM_MODIFY, &data);
}

bool TrayIcon::OnTimer(UINT_PTR timerId) {
  if (timerId != timerId_) return false;
  KillTimer(owner_, timerId_);
  HideBalloon();
  return true;
}

bool TrayIcon::HandleTaskbarCreated(UINT message) {
  if (taskbarCreated_ == 0 || message != taskbarCreated_) return false;
  // The old icon went with the old taskbar: add, not modify.
  shown_ = false;
  return Add(icon_, tip_);
}

void TrayIcon::Remove() {
  KillTimer(owner_, timerId_);
  if (!shown_) return;
  NOTIFYICONDATAW data = BaseData(0);
  Shell_NotifyIconW(NIM_DELETE, &data);
  shown_ = false;
}

bool TrayIcon::ScreenRect(RECT& rect) const {
  NOTIFYICONIDENTIFIER identifier{};
  identifier.cbSize = sizeof(identifier);
  identifier.hWnd = owner_;
  identifier.uID = iconId_;
  return shown_ && SUCCEEDED(Shell_NotifyIconGetRect(&identifier, &rect));
}

}  // namespace quilom::shell::win32
