#include "tools/win32/tool_window.hpp"

#include <commctrl.h>
#include <richedit.h>

#include <algorithm>
#include <vector>

#include "controls/win32/window_class.hpp"
#include "settings/error_report.hpp"
#include "tools/win32/tool_controls.hpp"

namespace quilom::tools::win32 {

namespace {

constexpr wchar_t kClassName[] = L"QuilomToolWindow";
constexpr UINT_PTR kTabLeavesBoxSubclass = 1;
constexpr UINT_PTR kInsetTextSubclass = 2;
constexpr int kTextPointSize = 11;

std::vector<ToolWindow*>& OpenWindows() {
  static std::vector<ToolWindow*> windows;
  return windows;
}

int SystemDpi() {
  HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : 96;
}

// A multi-line RichEdit asks for Tab itself; the tools' boxes hold plain text where a typed tab
// is rarely wanted, and the keyboard user needs Tab to reach the buttons.
LRESULT CALLBACK TabLeavesBox(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
  if (message == WM_GETDLGCODE) {
    LRESULT code = DefSubclassProc(box, message, wParam, lParam);
    code &= ~(DLGC_WANTTAB | DLGC_WANTALLKEYS);
    const auto* keyMessage = reinterpret_cast<const MSG*>(lParam);
    // Enter still breaks lines inside the box.
    if (keyMessage != nullptr && keyMessage->message == WM_KEYDOWN && keyMessage->wParam == VK_RETURN) {
      code |= DLGC_WANTMESSAGE;
    }
    return code;
  }
  if (message == WM_NCDESTROY) RemoveWindowSubclass(box, TabLeavesBox, kTabLeavesBoxSubclass);
  return DefSubclassProc(box, message, wParam, lParam);
}

// Tamil vowel signs written before their consonant reach left of the pen, and Wine's RichEdit
// draws a line's first letter right against the border: the text is kept `inset` pixels in from
// the left. A resize gives the box its whole client area back, so the inset is set again after it.
LRESULT CALLBACK InsetText(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR inset) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(box, InsetText, kInsetTextSubclass);
  const LRESULT result = DefSubclassProc(box, message, wParam, lParam);
  if (message == WM_SIZE) {
    RECT text{};
    GetClientRect(box, &text);
    text.left += static_cast<LONG>(inset);
    text.right -= static_cast<LONG>(inset) / 2;
    if (text.right > text.left) SendMessageW(box, EM_SETRECT, 0, reinterpret_cast<LPARAM>(&text));
  }
  return result;
}

// Fonts by script cost a full re-layout of the box, which grows too slow past this length on
// the systems that need it; longer texts stay in the one Tamil font.
constexpr int kScriptFontsLimit = 20000;

const wchar_t* RichEditClass() {
  static const wchar_t* name = [] {
    if (LoadLibraryW(L"Msftedit.dll") != nullptr) return MSFTEDIT_CLASS;
    LoadLibraryW(L"Riched20.dll");
    return RICHEDIT_CLASSW;
  }();
  return name;
}

void RegisterClassOnce(HINSTANCE instance, WNDPROC procedure) {
  HICON icon = LoadIconW(instance, MAKEINTRESOURCEW(1));
  if (icon == nullptr) icon = LoadIconW(nullptr, IDI_APPLICATION);
  controls::RegisterWindowClassOnce(instance, kClassName, procedure, icon);
}

}  // namespace

HWND ToolWindow::Open(std::unique_ptr<ToolWindow> window, HINSTANCE instance, HWND owner, std::wstring_view kind,
                      std::wstring_view title, int width, int height, HMENU menu) {
  if (HWND open = FindOpen(kind); open != nullptr) {
    if (menu != nullptr) DestroyMenu(menu);
    if (IsIconic(open)) ShowWindow(open, SW_RESTORE);
    SetForegroundWindow(open);
    return open;
  }
  RegisterClassOnce(instance, Procedure);
  window->kind_ = std::wstring(kind);
  window->dpi_ = SystemDpi();
  RECT frame{0, 0, window->Px(width), window->Px(height)};
  constexpr DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
  constexpr DWORD extendedStyle = WS_EX_CONTROLPARENT;
  AdjustWindowRectEx(&frame, style, menu != nullptr, extendedStyle);
  const std::wstring caption(title);
  ToolWindow* raw = window.release();
  HWND created = CreateWindowExW(extendedStyle, kClassName, caption.c_str(), style, CW_USEDEFAULT, CW_USEDEFAULT,
                                 frame.right - frame.left, frame.bottom - frame.top, owner, menu, instance, raw);
  if (created == nullptr) {
    // WM_NCCREATE never ran, so nothing took the object.
    if (raw->window_ == nullptr) delete raw;
    return nullptr;
  }
  ShowWindow(created, SW_SHOWNORMAL);
  UpdateWindow(created);
  return created;
}

HWND ToolWindow::FindOpen(std::wstring_view kind) {
  for (ToolWindow* window : OpenWindows()) {
    if (window->kind_ == kind) return window->window_;
  }
  return nullptr;
}

bool ToolWindow::AnyOpen() { return !OpenWindows().empty(); }

bool ToolWindow::TranslateNavigation(MSG& message) {
  for (ToolWindow* window : OpenWindows()) {
    HWND top = window->window_;
    if (message.hwnd == top || IsChild(top, message.hwnd)) return IsDialogMessageW(top, &message) != FALSE;
  }
  return false;
}

HWND ToolWindow::AddControl(int id, const wchar_t* windowClass, std::wstring_view text, DWORD style) {
  const std::wstring caption(text);
  HWND control = CreateWindowExW(0, windowClass, caption.c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(uiFont_->Handle()), FALSE);
  return control;
}

HWND ToolWindow::AddLabel(int id, std::wstring_view text) { return AddControl(id, WC_STATICW, text, 0); }

HWND ToolWindow::AddButton(int id, std::wstring_view text, bool isDefault) {
  return AddControl(id, WC_BUTTONW, text, WS_TABSTOP | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON));
}

HWND ToolWindow::AddCheckBox(int id, std::wstring_view text) {
  return AddControl(id, WC_BUTTONW, text, WS_TABSTOP | BS_AUTOCHECKBOX);
}

HWND ToolWindow::AddTextBox(int id, bool readOnly, bool notifyChanges) {
  DWORD style =
      WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | ES_NOHIDESEL;
  if (readOnly) style |= ES_READONLY;
  HWND box = CreateWindowExW(WS_EX_CLIENTEDGE, RichEditClass(), L"", style, 0, 0, 0, 0, window_,
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  SendMessageW(box, EM_SETTEXTMODE, (mixFonts_ ? TM_RICHTEXT : TM_PLAINTEXT) | TM_MULTILEVELUNDO | TM_MULTICODEPAGE, 0);
  // The default limit (32 767 characters) would cut long documents short.
  SendMessageW(box, EM_EXLIMITTEXT, 0, 64 * 1024 * 1024);
  SendMessageW(box, WM_SETFONT, reinterpret_cast<WPARAM>(textFont_->Handle()), FALSE);
  SendMessageW(box, EM_SETEVENTMASK, 0, notifyChanges || mixFonts_ ? ENM_CHANGE : 0);
  notifying_.push_back(notifyChanges ? box : nullptr);
  SetWindowSubclass(box, TabLeavesBox, kTabLeavesBoxSubclass, 0);
  SetWindowSubclass(box, InsetText, kInsetTextSubclass, static_cast<DWORD_PTR>(Px(5)));
  return box;
}

void ToolWindow::Place(int id, int x, int y, int width, int height) const {
  SetWindowPos(Item(id), nullptr, x, y, std::max(width, 0), std::max(height, 0), SWP_NOZORDER | SWP_NOACTIVATE);
}

bool ToolWindow::IsTicked(int id) const { return IsDlgButtonChecked(window_, id) == BST_CHECKED; }

void ToolWindow::SetTicked(int id, bool ticked) const {
  CheckDlgButton(window_, id, ticked ? BST_CHECKED : BST_UNCHECKED);
}

void ToolWindow::SetCaption(int id, std::u16string_view text) const {
  const std::wstring wide(text.begin(), text.end());
  SetDlgItemTextW(window_, id, wide.c_str());
}

void ToolWindow::ShowText(int id, std::u16string_view text) {
  HWND box = Item(id);
  formatting_ = true;
  if (mixFonts_ && text.size() < static_cast<size_t>(kScriptFontsLimit)) {
    ShowTextInScriptFonts(box, text, latinFace_, tamilFace_, kTextPointSize);
  } else {
    SetBoxText(box, text);
  }
  formatting_ = false;
}

void ToolWindow::FormatScripts(HWND box) {
  formatting_ = true;
  ApplyScriptFonts(box, latinFace_, tamilFace_, kTextPointSize);
  formatting_ = false;
}

void ToolWindow::MoveFocus(WPARAM target, bool isHandle) {
  HWND next = isHandle ? reinterpret_cast<HWND>(target) : GetNextDlgTabItem(window_, GetFocus(), target != 0);
  if (next != nullptr) SetFocus(next);
}

void ToolWindow::ReportTrapped(std::u16string_view description) noexcept {
  ReportError(ErrorTag(), ErrorDetails{-1, u"Quilom++", std::u16string(description)});
}

LRESULT CALLBACK ToolWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    auto* self = static_cast<ToolWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<ToolWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    auto& open = OpenWindows();
    open.erase(std::remove(open.begin(), open.end(), self), open.end());
    delete self;
    return DefWindowProcW(window, message, wParam, lParam);
  }
  LRESULT result = 0;
  bool handled = false;
  self->Guarded([&] {
    result = self->Dispatch(message, wParam, lParam);
    handled = true;
  });
  return handled ? result : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT ToolWindow::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      uiFont_.emplace(controls::SystemFont::Message);
      tamilFace_ = controls::TamilAndLatinFace();
      textFont_.emplace(tamilFace_, kTextPointSize);
      mixFonts_ = !controls::DrawsTamilAndLatin(tamilFace_);
      latinFace_ = uiFont_->Face();
      OpenWindows().push_back(this);
      OnCreate();
      return 0;
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) OnLayout(LOWORD(lParam), HIWORD(lParam));
      return 0;
    case WM_GETMINMAXINFO: {
      auto* limits = reinterpret_cast<MINMAXINFO*>(lParam);
      limits->ptMinTrackSize = POINT{Px(420), Px(320)};
      return 0;
    }
    case WM_COMMAND:
      // Escape, through the dialog navigation, closes the window as it closes a dialog.
      if (LOWORD(wParam) == IDCANCEL && lParam == 0) {
        PostMessageW(window_, WM_CLOSE, 0, 0);
        return 0;
      }
      if (HIWORD(wParam) == EN_CHANGE && lParam != 0) {
        HWND box = reinterpret_cast<HWND>(lParam);
        if (formatting_) return 0;
        if (mixFonts_ && GetWindowTextLengthW(box) < kScriptFontsLimit) FormatScripts(box);
        // Boxes that asked for change notices get them; the others only wanted the fonts kept.
        if (std::find(notifying_.begin(), notifying_.end(), box) == notifying_.end()) return 0;
      }
      OnCommand(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_TIMER:
      OnTimer(wParam);
      return 0;
    // IsDialogMessage moves the focus with this dialog message (a label's mnemonic, Tab) and
    // asks for the default button; a plain window must answer them itself.
    case WM_NEXTDLGCTL:
      MoveFocus(wParam, LOWORD(lParam) != 0);
      return 0;
    case DM_GETDEFID:
      return DefaultButton() != 0 ? MAKELRESULT(DefaultButton(), DC_HASDEFID) : 0;
    case WM_DESTROY:
      OnDestroy();
      return 0;
    default:
      return DefWindowProcW(window_, message, wParam, lParam);
  }
}

}  // namespace quilom::tools::win32
