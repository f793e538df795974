#include "shell/win32/beloved_oska.hpp"
// After windows.h, which it builds on.
#include <shellapi.h>

#include <system_error>

#include "controls/win32/wide_text.hpp"
#include "settings/error_report.hpp"
#include "shell/first_run_guide.hpp"
#include "shell/help_fallback.hpp"
#include "shell/hotkey_check.hpp"
#include "shell/hotkey_text.hpp"
#include "shell/offered_keymaps.hpp"
#include "shell/win32/help_text_window.hpp"
#include "shell/win32/hotkey_registration.hpp"
#include "shell/win32/main_menu.hpp"
#include "shell/win32/window_messages.hpp"
#include "version.hpp"

namespace quilom::shell::win32 {
namespace {

bool IsChecked(HWND box) { return SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED; }

std::u16string ComboText(HWND combo) {
  const LRESULT row = SendMessageW(combo, CB_GETCURSEL, 0, 0);
  if (row == CB_ERR) return {};
  const LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, row, 0);
  if (length == CB_ERR) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  SendMessageW(combo, CB_GETLBTEXT, row, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return controls::FromWide(text);
}

}  // namespace

void BelovedOska::OnOptionClick(int id, int code) {
  // Typing goes straight into our own box while it has the focus: synthetic input aimed at our
  // own window would come back through our own hook.
  if (id == kEditorId && code == EN_SETFOCUS) output_.SetTypeIntoOwnEditor(true);
  if (id == kEditorId && code == EN_KILLFOCUS) output_.SetTypeIntoOwnEditor(false);
  if (id == kKeymapListId && code == LBN_DBLCLK) SelectListedKeymap();
  if (code != BN_CLICKED) return;
  const bool typingOn = front_.TypingOn();
  switch (id) {
    case kStartStopId:
      StartStopGlobalTyping();
      break;
    case kAllApplicationsId:
      ApplyEffects(options_->ClickHookingType(kTypingInAllApplications, typingOn));
      break;
    case kOneApplicationId:
      ApplyEffects(options_->ClickHookingType(kFocusedOnOneApplication, typingOn));
      break;
    case kInstantTypingId:
      ApplyEffects(options_->ClickBox(OptionBox::InstantTyping, IsChecked(instantTyping_)));
      break;
    case kFastEditingId:
      ApplyEffects(options_->ClickBox(OptionBox::FastEditing, IsChecked(fastEditing_)));
      break;
    case kSmartEditingId:
      ApplyEffects(options_->ClickBox(OptionBox::SmartEditing, IsChecked(smartEditing_)));
      break;
    case kCopyPasteEditingId:
      ApplyEffects(options_->ClickBox(OptionBox::CopyPasteEditing, IsChecked(copyPasteEditing_)));
      break;
    case kIncludeHotkeysId:
      ApplyEffects(options_->ClickBox(OptionBox::IncludeHotkeys, IsChecked(includeHotkeys_)));
      break;
    case kUseKeymapId:
      SelectListedKeymap();
      break;
    case kSetHotkeyId:
      SetHotkey();
      break;
    case kChartButtonId:
      OpenHelpFile(kCmdKeymapChart);
      break;
    case kGettingStartedButtonId:
      OpenHelpFile(kCmdGettingStarted);
      break;
    case IDOK: {
      // Enter: the control with the focus decides what it means.
      HWND focus = GetFocus();
      if (focus == keymapList_) SelectListedKeymap();
      if (focus == hotkeyList_) SetHotkey();
      break;
    }
    case IDCANCEL:
      HideToTray();
      break;
    default:
      break;
  }
  WriteStateFile();
}

void BelovedOska::ApplyEffects(const OptionEffects& effects) {
  if (effects.stopGlobalTypingFirst && front_.TypingOn()) {
    // Still in the old mode for this one selection, so that it turns typing off.
    const int newMode = options_->Options().FocusedMode;
    selector_.State().FocusedMode = kTypingInAllApplications;
    RunSelection(ActiveKeymapRequest(offered_, selector_.State()));
    selector_.State().FocusedMode = newMode;
  }
  selector_.State().FocusedMode = options_->Options().FocusedMode;
  if (effects.clearHookedWindow) selector_.State().HookedWindow = 0;
  ShowOptions();
  ShowTypingState();
  if (effects.refreshGrid && observer_ != nullptr) observer_->OnOfferedKeymapsChanged();
  UpdateTrayTip();
}

void BelovedOska::SetHotkey() {
  const std::u16string chosen = ComboText(hotkeyList_);
  HotkeyRegistration registration(window_);
  const HotkeyCheckResult result = CheckHotkey(chosen, registration);
  if (result.verdict == HotkeyVerdict::Refused) {
    MessageBoxW(window_, controls::ToWide(result.message).c_str(), L"Quilom++", MB_OK | MB_ICONINFORMATION);
    FillHotkeyList();
    return;
  }
  options_->StoreHotkey(result.verdict == HotkeyVerdict::Cleared ? u"None" : chosen);
  ApplyHotkeyCodes();
  ShowOptions();
  ShowGuide();
  UpdateTrayTip();
}

void BelovedOska::ApplyHotkeyCodes() { front_.State().hotkeys = HotkeyCodesOf(options_->Options().presentHotkey); }

// Only files inside the data folder are handed to the shell: a keymap name comes from a list
// file a user can edit, and must never open an arbitrary program.
void BelovedOska::OpenHelpFile(int command) {
  std::optional<std::filesystem::path> file;
  if (command == kCmdGettingStarted) {
    file = GettingStartedPath(folders_);
  } else {
    const LRESULT row = SendMessageW(keymapList_, LB_GETCURSEL, 0, 0);
    const std::u16string& keymap = row != LB_ERR ? offered_[static_cast<std::size_t>(row)] : offered_.front();
    file = KeymapChartPath(folders_, keymap);
    if (!file) {
      const std::wstring message = L"There is no chart for the keymap " + controls::ToWide(keymap) + L" yet.";
      MessageBoxW(window_, message.c_str(), L"Quilom++", MB_OK | MB_ICONINFORMATION);
      return;
    }
  }
  if (!file) return;
  const auto result = reinterpret_cast<INT_PTR>(
      ShellExecuteW(window_, L"open", file->wstring().c_str(), nullptr, nullptr, SW_SHOWNORMAL));
  std::error_code error;
  switch (HelpOpeningFor(result, std::filesystem::is_regular_file(*file, error))) {
    case HelpOpening::Opened:
      break;
    case HelpOpening::ShowInside:
      ShowHelpTextWindow(window_, *file);
      break;
    case HelpOpening::Missing:
      ReportError(u"DT-help", {static_cast<long>(result), u"ShellExecuteW", controls::FromWide(file->wstring())});
      break;
  }
}

void BelovedOska::ShowAbout() {
  const std::wstring text = L"Quilom++ version " + std::to_wstring(kVersionMajor) + L"." +
                            std::to_wstring(kVersionMinor) + L"." + std::to_wstring(kVersionRevision) +
                            L"\n\nType Tamil and other Indic languages in any application from an English "
                            L"keyboard, convert documents between Tamil font encodings, and more.";
  MessageBoxW(window_, text.c_str(), L"Quilom++", MB_OK | MB_ICONINFORMATION);
}

}  // namespace quilom::shell::win32
