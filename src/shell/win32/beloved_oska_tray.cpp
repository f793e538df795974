#include "controls/win32/wide_text.hpp"
#include "shell/language_setting_warning.hpp"
#include "shell/tray_texts.hpp"
#include "shell/win32/app_windows.hpp"
#include "shell/win32/beloved_oska.hpp"
#include "shell/win32/main_menu.hpp"
#include "shell/win32/tray_menu.hpp"
#include "shell/win32/window_messages.hpp"
#include "translit/typing_settings.hpp"

namespace quilom::shell::win32 {
namespace {

std::u16string WindowCaption(HWND window) {
  wchar_t text[256] = {};
  GetWindowTextW(window, text, 256);
  return controls::FromWide(text);
}

std::u16string ClassNameOf(HWND window) {
  wchar_t text[256] = {};
  GetClassNameW(window, text, 256);
  return controls::FromWide(text);
}

bool BelongsToThisProcess(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process == GetCurrentProcessId();
}

}  // namespace

void BelovedOska::AddTrayIcon() {
  tray_ = std::make_unique<TrayIcon>(window_, kTrayCallbackMessage, kTrayIconId, kBalloonTimer);
  tray_->SetBalloonTimeout(static_cast<UINT>(general_.balloonSeconds) * 1000);
  tray_->Add(appIcon_, IdleTooltip());
}

void BelovedOska::OnTrayMessage(LPARAM mouseMessage) {
  switch (static_cast<UINT>(mouseMessage)) {
    case WM_LBUTTONUP:
      if (IsWindowVisible(window_) && !IsIconic(window_)) {
        HideToTray();
      } else {
        ShowFromTray();
      }
      break;
    case WM_RBUTTONUP: {
      POINT cursor{};
      GetCursorPos(&cursor);
      const UINT chosen = ShowTrayMenu(window_, cursor, front_.TypingOn());
      if (chosen != 0) OnMenuCommand(chosen);
      break;
    }
    case WM_MBUTTONUP:
      StartStopGlobalTyping();
      break;
    default:
      break;
  }
}

void BelovedOska::OnMenuCommand(UINT id) {
  AppWindow appWindow{};
  if (CommandToAppWindow(id, kCmdFirstAppWindow, appWindow)) {
    AppWindowContext context;
    context.instance = GetModuleHandleW(nullptr);
    context.owner = window_;
    context.folders = folders_;
    context.afterBatchConversion = [this] { front_.Processor().ResetComposition(); };
    OpenAppWindow(appWindow, context);
    return;
  }
  switch (id) {
    case kCmdStartStop:
      StartStopGlobalTyping();
      break;
    case kCmdShowFloater:
      if (toggleFloater_) toggleFloater_();
      break;
    case kCmdHideToTray:
      HideToTray();
      break;
    case kCmdExit:
      Close();
      break;
    case kCmdGettingStarted:
    case kCmdKeymapChart:
      OpenHelpFile(static_cast<int>(id));
      break;
    case kCmdAbout:
      ShowAbout();
      break;
    default:
      break;
  }
  WriteStateFile();
}

void BelovedOska::HideToTray() {
  if (!tray_ || !tray_->Shown()) {
    // Without an icon the window could not be found again: minimise instead.
    ShowWindow(window_, SW_MINIMIZE);
    return;
  }
  ShowWindow(window_, SW_HIDE);
  tray_->ShowBalloon(MinimisedToTrayBalloon());
  WriteStateFile();
}

void BelovedOska::ShowFromTray() {
  ShowWindow(window_, IsIconic(window_) ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(window_);
  WriteStateFile();
}

void BelovedOska::UpdateTrayTip() {
  if (!tray_) return;
  if (!front_.TypingOn()) {
    tray_->SetTip(IdleTooltip());
    return;
  }
  const SelectionState& state = selector_.State();
  HookedWindowKind kind = HookedWindowKind::Global;
  std::u16string caption;
  if (state.FocusedMode == kFocusedOnOneApplication) {
    kind = state.HookedWindow != 0 ? HookedWindowKind::OneWindow : HookedWindowKind::None;
    if (state.HookedWindow != 0) caption = WindowCaption(reinterpret_cast<HWND>(state.HookedWindow));
  }
  tray_->SetTip(TypingTooltip(kind, caption, options_->Options().presentHotkey, state.ActiveKeymap));
}

void BelovedOska::PollForeground() {
  HWND front = GetForegroundWindow();
  if (front == nullptr) return;
  foreground_.Observe(reinterpret_cast<WindowId>(front), ClassNameOf(front), BelongsToThisProcess(front));
  const WindowId target = foreground_.Target();
  if (target != 0 && !IsWindow(reinterpret_cast<HWND>(target))) foreground_.Forget(target);
}

void BelovedOska::ShowStartupNotices() {
  if (const auto warning = LanguageSettingWarning(GetACP()))
    MessageBoxW(window_, controls::ToWide(*warning).c_str(), L"Quilom++", MB_OK | MB_ICONWARNING);
  const translit::TypingSettings typing = translit::LoadTypingSettings(folders_);
  if (!typing.balloonAtStartup || typing.startSilently || !tray_) return;
  BalloonText balloon;
  balloon.title = u"Quilom++ is running";
  const std::u16string& hotkey = options_->Options().presentHotkey;
  balloon.text = hotkey == u"None" ? u"Click the tray icon to open Quilom++ and start typing."
                                   : u"Press " + hotkey + u" then 1 to type Tamil; the same keys again stop it.";
  tray_->ShowBalloon(balloon);
}

}  // namespace quilom::shell::win32
