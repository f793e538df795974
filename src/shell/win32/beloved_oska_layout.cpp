#include <string>

#include "controls/win32/wide_text.hpp"
#include "shell/first_run_guide.hpp"
#include "shell/hotkey_text.hpp"
#include "shell/offered_keymaps.hpp"
#include "shell/win32/beloved_oska.hpp"
#include "shell/win32/window_messages.hpp"
#include "version.hpp"

namespace quilom::shell::win32 {
namespace {

HWND MakeChild(HWND parent, const wchar_t* className, const wchar_t* text, DWORD style, int id = 0) {
  return CreateWindowExW(0, className, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 10, 10, parent,
                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
}

std::wstring VersionLabel() {
  return L"V " + std::to_wstring(kVersionMajor) + L"." + std::to_wstring(kVersionMinor) + L"." +
         std::to_wstring(kVersionRevision);
}

void SetCheck(HWND box, bool on) { SendMessageW(box, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0); }

}  // namespace

int BelovedOska::Scale(int value) const { return MulDiv(value, dpi_, 96); }

void BelovedOska::CreateControls() {
  const DWORD tab = WS_TABSTOP;
  title_ = MakeChild(window_, L"STATIC", L"Quilom++ : type Tamil in any application", SS_LEFT | SS_NOPREFIX);
  guide_ = MakeChild(window_, L"STATIC", L"", SS_LEFT | SS_NOPREFIX);
  allApplications_ = MakeChild(window_, L"BUTTON", L"Enable typing in &all applications",
                               BS_AUTORADIOBUTTON | WS_GROUP | tab, kAllApplicationsId);
  oneApplication_ =
      MakeChild(window_, L"BUTTON", L"Enable typing in that application a&lone", BS_AUTORADIOBUTTON, kOneApplicationId);
  instantTyping_ =
      MakeChild(window_, L"BUTTON", L"&Instant Typing", BS_AUTOCHECKBOX | WS_GROUP | tab, kInstantTypingId);
  fastEditing_ = MakeChild(window_, L"BUTTON", L"&Fast Editing", BS_AUTOCHECKBOX | tab, kFastEditingId);
  smartEditing_ = MakeChild(window_, L"BUTTON", L"S&mart Editing", BS_AUTOCHECKBOX | tab, kSmartEditingId);
  copyPasteEditing_ = MakeChild(window_, L"BUTTON", L"&CopyPaste Editing", BS_AUTOCHECKBOX | tab, kCopyPasteEditingId);
  includeHotkeys_ = MakeChild(window_, L"BUTTON", L"Inclu&de Hotkeys", BS_AUTOCHECKBOX | tab, kIncludeHotkeysId);
  startStop_ = MakeChild(window_, L"BUTTON", L"", BS_PUSHBUTTON | tab | WS_GROUP, kStartStopId);
  status_ = MakeChild(window_, L"STATIC", L"", SS_LEFT | SS_NOPREFIX);
  keymapLabel_ = MakeChild(window_, L"STATIC", L"&Keymaps (hotkey number, name):", SS_LEFT);
  keymapList_ = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"",
                                WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | tab, 0, 0, 10,
                                10, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kKeymapListId)),
                                GetModuleHandleW(nullptr), nullptr);
  useKeymap_ = MakeChild(window_, L"BUTTON", L"&Use the selected keymap", BS_PUSHBUTTON | tab, kUseKeymapId);
  hotkeyLabel_ = MakeChild(window_, L"STATIC", L"Hotk&ey:", SS_LEFT);
  hotkeyList_ = MakeChild(window_, L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL | tab, kHotkeyListId);
  setHotkey_ = MakeChild(window_, L"BUTTON", L"Set &New Hotkey", BS_PUSHBUTTON | tab, kSetHotkeyId);
  presentHotkey_ = MakeChild(window_, L"STATIC", L"", SS_LEFT | SS_NOPREFIX);
  chartButton_ = MakeChild(window_, L"BUTTON", L"Keymap cha&rt", BS_PUSHBUTTON | tab, kChartButtonId);
  gettingStartedButton_ =
      MakeChild(window_, L"BUTTON", L"&Getting started", BS_PUSHBUTTON | tab, kGettingStartedButtonId);
  tryHere_ = MakeChild(window_, L"STATIC", L"Try it here:", SS_LEFT);
  editor_ = std::make_unique<controls::RichEditBox>(controls::RichEditBox::Create(window_, kEditorId, {0, 0, 10, 10}));
  version_ = MakeChild(window_, L"STATIC", VersionLabel().c_str(), SS_RIGHT | SS_NOPREFIX);
  LayoutControls();
}

// Creation order is the tab order. Positions are laid out at 96 DPI and scaled, so the window reads the same at any
// resolution.
void BelovedOska::LayoutControls() {
  const int fontScale = MulDiv(dpi_, 100, systemDpi_);
  uiFont_ = std::make_unique<controls::UiFont>(L"Segoe UI", MulDiv(9, fontScale, 100));
  titleFont_ = std::make_unique<controls::UiFont>(L"Segoe UI", MulDiv(13, fontScale, 100), true);
  tamilFont_ = std::make_unique<controls::UiFont>(controls::TamilFace(), MulDiv(13, fontScale, 100));
  struct Place {
    HWND control;
    int x, y, width, height;
  };
  const Place places[] = {
      {title_, 16, 6, 712, 26},
      {guide_, 16, 34, 712, 56},
      {allApplications_, 16, 94, 300, 22},
      {oneApplication_, 330, 94, 398, 22},
      {instantTyping_, 16, 120, 128, 22},
      {fastEditing_, 150, 120, 118, 22},
      {smartEditing_, 274, 120, 126, 22},
      {copyPasteEditing_, 406, 120, 150, 22},
      {includeHotkeys_, 562, 120, 166, 22},
      {startStop_, 16, 148, 220, 32},
      {status_, 248, 155, 480, 22},
      {keymapLabel_, 16, 190, 430, 20},
      {keymapList_, 16, 210, 430, 146},
      {hotkeyLabel_, 462, 190, 266, 20},
      {hotkeyList_, 462, 210, 170, 320},
      {setHotkey_, 638, 209, 90, 26},
      {presentHotkey_, 462, 240, 266, 20},
      {useKeymap_, 462, 264, 266, 28},
      {chartButton_, 462, 298, 130, 28},
      {gettingStartedButton_, 598, 298, 130, 28},
      {tryHere_, 16, 362, 400, 20},
      {editor_->Handle(), 16, 382, 712, 70},
      {version_, 528, 454, 200, 18},
  };

  for (const Place& place : places) {
    MoveWindow(place.control, Scale(place.x), Scale(place.y), Scale(place.width), Scale(place.height), TRUE);
    uiFont_->ApplyTo(place.control);
  }
  titleFont_->ApplyTo(title_);
  tamilFont_->ApplyTo(editor_->Handle());
}

void BelovedOska::FillKeymapList() {
  SendMessageW(keymapList_, LB_RESETCONTENT, 0, 0);
  for (std::size_t i = 0; i < offered_.size(); ++i) {
    const std::wstring label = controls::ToWide(KeymapListLabel(static_cast<int>(i) + 1, offered_[i]));
    SendMessageW(keymapList_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(label.c_str()));
  }
  SendMessageW(keymapList_, LB_SETCURSEL, 0, 0);
}

void BelovedOska::FillHotkeyList() {
  SendMessageW(hotkeyList_, CB_RESETCONTENT, 0, 0);
  const auto texts = OfferedHotkeyTexts();
  const std::u16string& present = options_->Options().presentHotkey;
  int presentIndex = 0;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::wstring text = controls::ToWide(texts[i]);
    SendMessageW(hotkeyList_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    if (texts[i] == present) presentIndex = static_cast<int>(i);
  }
  SendMessageW(hotkeyList_, CB_SETCURSEL, presentIndex, 0);
}

void BelovedOska::ShowOptions() {
  const MainOptions& options = options_->Options();
  // The boxes shown are the choices the hooks follow.
  front_.State().editing = options_->Editing();
  output_.SetPasteThroughClipboard(options.copyPasteEditing);
  options_->SetIgnoreMarker(true);
  SetCheck(allApplications_, options.FocusedMode == kTypingInAllApplications);
  SetCheck(oneApplication_, options.FocusedMode == kFocusedOnOneApplication);
  SetCheck(instantTyping_, options.instantTyping);
  SetCheck(fastEditing_, options.FastEditing == 1);
  SetCheck(smartEditing_, options.smartEditing);
  SetCheck(copyPasteEditing_, options.copyPasteEditing);
  SetCheck(includeHotkeys_, options.includeHotkeys);
  options_->SetIgnoreMarker(false);
  const std::wstring present = L"Present hotkey: " + controls::ToWide(options.presentHotkey);
  SetWindowTextW(presentHotkey_, present.c_str());
}

void BelovedOska::ShowGuide() {
  const std::u16string guide = FirstRunGuide(options_->Options().presentHotkey, offered_.front());
  SetWindowTextW(guide_, controls::ToWide(guide).c_str());
}

}  // namespace quilom::shell::win32
