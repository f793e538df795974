#include "controls/win32/wide_text.hpp"
#include "settings/error_report.hpp"
#include "shell/offered_keymaps.hpp"
#include "shell/tray_texts.hpp"
#include "shell/typing_toggle.hpp"
#include "shell/win32/beloved_oska.hpp"
#include "shell/win32/drawn_icons.hpp"
#include "shell/win32/window_messages.hpp"
#include "translit/keymap_resolution.hpp"

namespace quilom::shell::win32 {
namespace {

ForegroundInfo ReadForeground(WindowId hookedWindow) {
  ForegroundInfo info;
  GUITHREADINFO thread{};
  thread.cbSize = sizeof(thread);
  HWND front = GetForegroundWindow();
  const DWORD frontThread = front != nullptr ? GetWindowThreadProcessId(front, nullptr) : 0;
  if (GetGUIThreadInfo(frontThread, &thread)) {
    // The control that had the keyboard focus, so that giving the focus back lands in it and not
    // on its frame.
    HWND focus = thread.hwndFocus != nullptr ? thread.hwndFocus : thread.hwndActive;
    info.ForegroundWindow = reinterpret_cast<WindowId>(focus != nullptr ? focus : front);
  } else {
    info.ForegroundWindow = reinterpret_cast<WindowId>(front);
    if (front != nullptr) ReportError(u"S-Thinfo", {static_cast<long>(GetLastError()), u"GetGUIThreadInfo", u""});
  }
  info.ForegroundThread = frontThread;
  if (hookedWindow != 0)
    info.hookedWindowThread = GetWindowThreadProcessId(reinterpret_cast<HWND>(hookedWindow), nullptr);
  return info;
}

// Lets the messages that piled up run before the focus moves, so the window we give the focus
// back to has seen its own activation first.
void GiveFocusBack(WindowId target) {
  HWND window = reinterpret_cast<HWND>(target);
  if (!IsWindow(window)) return;
  MSG message;
  for (int i = 0; i < 32 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  SetForegroundWindow(GetAncestor(window, GA_ROOT));
  const DWORD targetThread = GetWindowThreadProcessId(window, nullptr);
  const DWORD ownThread = GetCurrentThreadId();
  if (targetThread != ownThread && AttachThreadInput(ownThread, targetThread, TRUE)) {
    SetFocus(window);
    AttachThreadInput(ownThread, targetThread, FALSE);
  }
}

}  // namespace

void BelovedOska::SelectKeymapNumber(int hotkeyNumber, bool showInGrid, bool returnFocus) {
  const auto request = RequestForNumber(offered_, hotkeyNumber, showInGrid, returnFocus);
  if (request) RunSelection(*request);
}

void BelovedOska::RunSelection(const KeymapRequest& request) {
  const SelectionActions actions = selector_.SelectKeymap(request, ReadForeground(selector_.State().HookedWindow));
  if (actions.ignoredWhileBusy) return;
  try {
    CarryOut(actions);
  } catch (...) {
    ReportError(u"BB - pks", {0, u"SelectKeymap", u"The keymap could not be switched."});
  }
  selector_.FinishSelection(front_.TypingOn());
  Announce(actions);
  ShowTypingState();
  if (observer_ != nullptr) observer_->OnTypingChanged(front_.TypingOn(), selector_.State().ActiveKeymap);
  WriteStateFile();
  if (actions.giveFocusTo != 0 && actions.giveFocusTo != reinterpret_cast<WindowId>(window_))
    GiveFocusBack(actions.giveFocusTo);
}

void BelovedOska::CarryOut(const SelectionActions& actions) {
  if (actions.showRowInGrid) {
    const int number = HotkeyNumberOf(offered_, actions.keymapToApply);
    if (number != 0) SendMessageW(keymapList_, LB_SETCURSEL, number - 1, 0);
  }
  if (actions.removeHooks) front_.StopTyping();
  if (actions.reinstallHooks) front_.StopTyping();
  if (actions.installHooks || actions.reinstallHooks) front_.StartTyping();
  if (!actions.keymapToApply.empty()) ApplyKeymap(actions.keymapToApply);
}

// Read afresh at every selection, so that an edited keymap file or a changed typing setting
// takes effect at the next switch.
void BelovedOska::ApplyKeymap(const std::u16string& keymap) {
  const translit::TypingSettings typing = translit::LoadTypingSettings(folders_);
  std::shared_ptr<const translit::PhoneticKeymap> tables;
  const auto outcome = translit::LoadKeymapForSettings(folders_, typing, keymap, tables);
  if (outcome == translit::LoadOutcome::Missing) {
    ReportError(u"App Load", {2, u"LoadKeymapForSettings",
                              u"The keymap file is missing, so keys will type as themselves: " +
                                  controls::FromWide(translit::KeymapPathFor(folders_, typing, keymap).wstring())});
  }
  if (!tables) return;
  engine_.SetKeymap(tables);
  engine_.SetSettings(translit::EngineSettingsFor(typing, keymap));
}

void BelovedOska::Announce(const SelectionActions& actions) {
  if (actions.balloon == SelectionBalloon::None || !tray_) return;
  if (actions.balloon == SelectionBalloon::TypingOn && front_.TypingOn()) {
    if (languageIcon_ != nullptr) DestroyIcon(languageIcon_);
    languageIcon_ = DrawLetterIcon(IndicatorLetters(controls::ToWide(actions.balloonKeymap)), RGB(0x0B, 0x7A, 0x3E),
                                   GetSystemMetrics(SM_CXSMICON));
    tray_->SetIcon(languageIcon_ != nullptr ? languageIcon_ : appIcon_, LanguageIndicatorTooltip());
    tray_->ShowBalloon(TypingOnBalloon(actions.balloonKeymap, actions.balloonHotkeyNumber));
  } else if (actions.balloon == SelectionBalloon::TypingOff && !front_.TypingOn()) {
    tray_->SetIcon(appIcon_, IdleTooltip());
    tray_->ShowBalloon(TypingOffBalloon(actions.balloonKeymap));
  } else {
    return;
  }
  if (notifier_ && general_.playNotifierSounds)
    notifier_->Announce(general_.notifierSoundChoice, actions.balloonHotkeyNumber);
  UpdateTrayTip();
}

void BelovedOska::StartStopGlobalTyping() {
  try {
    if (DecideToggle(selector_.State().FocusedMode) == ToggleVerdict::ShowFocusedModeMessage) {
      MessageBoxW(window_, controls::ToWide(kFocusedModeToggleMessage).c_str(), L"Quilom++",
                  MB_OK | MB_ICONINFORMATION);
    } else {
      if (const auto request = ToggleRequest(offered_, floaterChosen_, selector_.State())) RunSelection(*request);
    }
  } catch (...) {
    ReportError(u"DT-huhbpi", {0, u"StartStopGlobalTyping", u"Typing could not be switched."});
  }
  ShowTypingState();
}

// Runs inside the hook callback: only the bookkeeping of the digits happens here; the
// selection itself is posted to the window.
void BelovedOska::OnHotkeyDigit(int vk) {
  const DigitOutcome outcome =
      numbers_.OnDigit(front_.State().keys, vk, static_cast<int>(offered_.size()), front_.TypingOn());
  const int number = NumberForDigit(outcome, floaterChosen_);
  if (number > 0) PostMessageW(window_, kHotkeyNumberMessage, static_cast<WPARAM>(number), 0);
}

void BelovedOska::SelectListedKeymap() {
  const LRESULT row = SendMessageW(keymapList_, LB_GETCURSEL, 0, 0);
  if (row != LB_ERR) SelectKeymapNumber(static_cast<int>(row) + 1, false, false);
}

void BelovedOska::ShowTypingState() {
  const bool on = front_.TypingOn();
  SetWindowTextW(startStop_, controls::ToWide(StartStopCaption(on)).c_str());
  std::wstring status = L"Typing is OFF";
  if (on) {
    const auto& active = selector_.State().ActiveKeymap;
    status = L"Typing is ON: " + controls::ToWide(active) + L" (hotkey number " +
             std::to_wstring(HotkeyNumberOf(offered_, active)) + L")";
  }
  SetWindowTextW(status_, status.c_str());
}

}  // namespace quilom::shell::win32
