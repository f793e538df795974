#include "shell/win32/beloved_oska_grace.hpp"

#include <commctrl.h>

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "controls/win32/wide_text.hpp"
#include "controls/win32/window_class.hpp"
#include "settings/error_report.hpp"
#include "translit/catalogue_lists.hpp"
#include "translit/win32/list_view_rows.hpp"

namespace quilom::shell::win32 {
namespace {

constexpr wchar_t kClassName[] = L"QuilomFloater";
constexpr wchar_t kCaption[] = L"Quilom++ Floater";
constexpr std::u16string_view kErrorTag = u"Floater";
constexpr int kGridId = 101;
constexpr int kOptionsId = 102;
constexpr UINT_PTR kForegroundTimer = 1;
constexpr UINT kForegroundPeriodMs = 250;

std::u16string WindowTitle(HWND window) {
  if (window == nullptr || !IsWindow(window)) return {};
  std::wstring title(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  title.resize(static_cast<size_t>(GetWindowTextW(window, title.data(), static_cast<int>(title.size()))));
  return std::u16string(title.begin(), title.end());
}

// The program's message loop runs no dialog navigation for the floater, so its two lists move
// the focus between them with Tab themselves, and Escape hides the floater as its close box does.
constexpr UINT_PTR kListKeysSubclass = 1;

LRESULT CALLBACK ListKeys(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR other) {
  if (message == WM_KEYDOWN && wParam == VK_TAB) {
    SetFocus(reinterpret_cast<HWND>(other));
    return 0;
  }
  if (message == WM_KEYDOWN && wParam == VK_ESCAPE) {
    PostMessageW(GetParent(list), WM_CLOSE, 0, 0);
    return 0;
  }
  // Their characters would start the list's type-ahead search.
  if (message == WM_CHAR && (wParam == L'\t' || wParam == 0x1B)) return 0;
  if (message == WM_NCDESTROY) RemoveWindowSubclass(list, ListKeys, kListKeysSubclass);
  return DefSubclassProc(list, message, wParam, lParam);
}

HFONT MessageFont() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0)) {
    return CreateFontIndirectW(&metrics.lfMessageFont);
  }
  return nullptr;
}

}  // namespace

BelovedOskaGrace::BelovedOskaGrace(HINSTANCE instance, TypingHost& host, const settings::DataFolders& folders)
    : instance_(instance), host_(host), folders_(folders) {}

BelovedOskaGrace::~BelovedOskaGrace() {
  if (window_ != nullptr) {
    SavePlacement();
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
  }
  if (font_ != nullptr) DeleteObject(font_);
}

bool BelovedOskaGrace::ShowsAtStartup(const settings::DataFolders& folders) {
  return ReadFloaterSettings(FloaterSettingsPath(folders)).On(FloaterOption::StartWithQuilom);
}

bool BelovedOskaGrace::Show() {
  if (window_ == nullptr) {
    settings_ = ReadFloaterSettings(FloaterSettingsPath(folders_));
    controls::RegisterWindowClassOnce(instance_, kClassName, Procedure);
    constexpr DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
    // Topmost from the start: Wine maps a window asked to be topmost before it is shown as an
    // ordinary one, and showing it does not ask again.
    const DWORD topmost = FloaterLookOf(settings_).alwaysOnTop ? WS_EX_TOPMOST : 0;
    window_ =
        CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_CONTROLPARENT | topmost, kClassName, kCaption, style, settings_.left,
                        settings_.top, settings_.width, settings_.height, nullptr, nullptr, instance_, this);
    if (window_ == nullptr) {
      ReportError(kErrorTag, ErrorDetails{static_cast<long>(GetLastError()), u"Quilom++", u"The floater was not made"});
      return false;
    }
  }
  ShowWindow(window_, SW_SHOWNOACTIVATE);
  ApplyTopmost();
  // Typing may have started before the floater was made.
  OnTypingChanged(host_.TypingOn(), host_.Selection().ActiveKeymap);
  return true;
}

void BelovedOskaGrace::Hide() {
  if (window_ == nullptr) return;
  SavePlacement();
  ShowWindow(window_, SW_HIDE);
}

bool BelovedOskaGrace::Visible() const { return window_ != nullptr && IsWindowVisible(window_) != FALSE; }

void BelovedOskaGrace::OnTypingChanged(bool typingOn, const std::u16string& activeKeymap) {
  typingOn_ = typingOn;
  activeKeymap_ = activeKeymap;
  if (window_ == nullptr) return;
  const std::u16string state = typingOn ? u"Typing: " + activeKeymap : u"Typing is OFF";
  SetWindowTextW(status_, controls::ToWide(state).c_str());
  if (typingOn && settings_.On(FloaterOption::FollowTheTyping)) ShowRowOf(activeKeymap);
  SyncHookTick();
}

std::string BelovedOskaGrace::StateBits() const {
  if (window_ == nullptr) return "000";
  const auto bit = [](bool on) { return on ? '1' : '0'; };
  const bool topmost = (GetWindowLongPtrW(window_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
  const bool hookTicked =
      ListView_GetCheckState(options_, static_cast<int>(FloaterOption::HookTheTypingWindow)) != FALSE;
  return {bit(Visible()), bit(topmost), bit(hookTicked)};
}

void BelovedOskaGrace::OnOfferedKeymapsChanged() {
  if (window_ == nullptr) return;
  FillGrid();
  SyncHookTick();
}

// The main window clears the hooked window when typing goes back to all applications; the tick
// must not go on claiming one.
void BelovedOskaGrace::SyncHookTick() {
  const bool hooked = host_.Selection().HookedWindow != 0;
  if (hooked || !settings_.On(FloaterOption::HookTheTypingWindow)) return;
  settings_.Set(FloaterOption::HookTheTypingWindow, false);
  fillingOptions_ = true;
  ListView_SetCheckState(options_, static_cast<int>(FloaterOption::HookTheTypingWindow), FALSE);
  fillingOptions_ = false;
}

LRESULT CALLBACK BelovedOskaGrace::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    auto* created = static_cast<BelovedOskaGrace*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    created->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
  }
  auto* self = reinterpret_cast<BelovedOskaGrace*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  try {
    return self->Dispatch(message, wParam, lParam);
  } catch (const std::exception& error) {
    const std::string_view what = error.what();
    ReportError(kErrorTag, ErrorDetails{-1, u"Quilom++", std::u16string(what.begin(), what.end())});
  } catch (...) {
    ReportError(kErrorTag, ErrorDetails{-1, u"Quilom++", u"unexpected failure"});
  }
  return 0;
}

LRESULT BelovedOskaGrace::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      CreateControls();
      SetTimer(window_, kForegroundTimer, kForegroundPeriodMs, nullptr);
      return 0;
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) Layout(LOWORD(lParam), HIWORD(lParam));
      return 0;
    case WM_NOTIFY:
      OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
      return 0;
    case WM_TIMER:
      if (wParam == kForegroundTimer) TrackForeground();
      return 0;
    case WM_EXITSIZEMOVE:
      SavePlacement();
      return 0;
    case WM_CLOSE:
      Hide();
      return 0;
    case WM_DESTROY:
      KillTimer(window_, kForegroundTimer);
      window_ = nullptr;
      return 0;
    default:
      return DefWindowProcW(window_, message, wParam, lParam);
  }
}

void BelovedOskaGrace::CreateControls() {
  HDC screen = GetDC(nullptr);
  dpi_ = std::max(GetDeviceCaps(screen, LOGPIXELSY), 96);
  ReleaseDC(nullptr, screen);
  font_ = MessageFont();
  const auto makeChild = [&](DWORD exStyle, const wchar_t* type, DWORD style, int id, const wchar_t* text) {
    HWND child = CreateWindowExW(exStyle, type, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), instance_, nullptr);
    SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_ ? font_ : GetStockObject(DEFAULT_GUI_FONT)), 0);
    return child;
  };
  guidance_ = makeChild(0, WC_STATICW, 0, 0, controls::ToWide(kFloaterGuidance).c_str());
  grid_ = makeChild(WS_EX_CLIENTEDGE, WC_LISTVIEWW, WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS,
                    kGridId, L"");
  ListView_SetExtendedListViewStyle(grid_, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
  options_ = makeChild(WS_EX_CLIENTEDGE, WC_LISTVIEWW, WS_TABSTOP | LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL,
                       kOptionsId, L"");
  ListView_SetExtendedListViewStyle(options_, LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
  translit::win32::SetListColumns(options_, {{L"Option", 240}});
  status_ = makeChild(0, WC_STATICW, SS_ENDELLIPSIS, 0, L"Typing is OFF");
  SetWindowSubclass(grid_, ListKeys, kListKeysSubclass, reinterpret_cast<DWORD_PTR>(options_));
  SetWindowSubclass(options_, ListKeys, kListKeysSubclass, reinterpret_cast<DWORD_PTR>(grid_));
  FillOptions();
  ApplyLook();
}

void BelovedOskaGrace::Layout(int width, int height) {
  const int margin = Px(6);
  const int guidanceHeight = Px(70);
  const int statusHeight = Px(18);
  // The options list is as tall as its nine rows in the font in use, no more.
  const DWORD needed = ListView_ApproximateViewRect(options_, -1, -1, kFloaterOptionCount);
  const int optionsHeight = HIWORD(needed) + 6;
  const int inner = std::max(width - 2 * margin, 0);
  const int gridTop = margin + guidanceHeight;
  const int gridHeight = std::max(height - gridTop - optionsHeight - statusHeight - 3 * margin, Px(40));
  MoveWindow(guidance_, margin, margin, inner, guidanceHeight - margin, TRUE);
  MoveWindow(grid_, margin, gridTop, inner, gridHeight, TRUE);
  MoveWindow(options_, margin, gridTop + gridHeight + margin, inner, optionsHeight, TRUE);
  MoveWindow(status_, margin, height - statusHeight - margin, inner, statusHeight, TRUE);
  ListView_SetColumnWidth(options_, 0, LVSCW_AUTOSIZE_USEHEADER);
  FitLastColumn();
}

// Every column is as wide as its header or widest cell; the last one also fills the room left.
// When the floater is narrower than that, the grid scrolls sideways instead of cutting a column.
void BelovedOskaGrace::FitLastColumn() {
  HWND header = ListView_GetHeader(grid_);
  const int columns = header != nullptr ? Header_GetItemCount(header) : 0;
  if (columns <= 0) return;
  const int last = columns - 1;
  for (int column = 0; column <= last; ++column) {
    wchar_t title[64] = {};
    LVCOLUMNW query{};
    query.mask = LVCF_TEXT;
    query.pszText = title;
    query.cchTextMax = 64;
    ListView_GetColumn(grid_, column, &query);
    ListView_SetColumnWidth(grid_, column, LVSCW_AUTOSIZE);
    const int needed = std::max(ListView_GetColumnWidth(grid_, column), ListView_GetStringWidth(grid_, title) + Px(14));
    ListView_SetColumnWidth(grid_, column, needed);
  }
  RECT client{};
  GetClientRect(grid_, &client);
  int used = 0;
  for (int column = 0; column < last; ++column) used += ListView_GetColumnWidth(grid_, column);
  const int room = client.right - used;
  if (room > ListView_GetColumnWidth(grid_, last)) ListView_SetColumnWidth(grid_, last, room);
}

void BelovedOskaGrace::FillOptions() {
  fillingOptions_ = true;
  std::vector<std::vector<std::u16string>> rows;
  for (const auto name : kFloaterOptionNames) rows.push_back({std::u16string(name)});
  translit::win32::SetListRows(options_, rows);
  for (int index = 0; index < kFloaterOptionCount; ++index) {
    ListView_SetCheckState(options_, index, settings_.options[static_cast<size_t>(index)] ? TRUE : FALSE);
  }
  fillingOptions_ = false;
}

void BelovedOskaGrace::BuildColumns() {
  const FloaterLook look = FloaterLookOf(settings_);
  std::vector<translit::win32::ListColumn> columns;
  if (look.hotkeyColumn) columns.push_back({L"#", Px(30)});
  if (look.nameColumn) columns.push_back({L"Keymap", Px(240)});
  if (look.languageColumn) columns.push_back({L"Language", Px(70)});
  if (look.encodingColumn) columns.push_back({L"Encoding", Px(66)});
  if (look.keyboardColumn) columns.push_back({L"Keyboard", Px(150)});
  translit::win32::SetListColumns(grid_, columns);
  FitLastColumn();
}

void BelovedOskaGrace::FillGrid() {
  const FloaterLook look = FloaterLookOf(settings_);
  const auto& keymaps = host_.OfferedKeymaps();
  std::vector<std::vector<std::u16string>> rows;
  for (size_t row = 0; row < keymaps.size(); ++row) {
    const translit::LfkRow parts = translit::LfkRowOfName(keymaps[row]);
    std::vector<std::u16string> cells;
    if (look.hotkeyColumn) {
      const std::string digits = std::to_string(row + 1);
      cells.emplace_back(digits.begin(), digits.end());
    }
    if (look.nameColumn) cells.push_back(keymaps[row]);
    if (look.languageColumn) cells.push_back(parts.language);
    if (look.encodingColumn) cells.push_back(parts.encoding);
    if (look.keyboardColumn) cells.push_back(parts.layout);
    rows.push_back(std::move(cells));
  }
  translit::win32::SetListRows(grid_, rows);
  FitLastColumn();
  if (chosenNumber_ > 0 && chosenNumber_ <= static_cast<int>(keymaps.size())) {
    translit::win32::SelectListRow(grid_, chosenNumber_ - 1);
  }
  if (typingOn_ && look.followTheTyping) ShowRowOf(activeKeymap_);
}

void BelovedOskaGrace::ApplyLook() {
  ApplyTopmost();
  BuildColumns();
  FillGrid();
}

// Asking again for the place it already has changes nothing; leaving it and taking it back
// restacks the floater above the window that was raised.
void BelovedOskaGrace::ReassertTopmost() {
  if (window_ == nullptr || !IsWindowVisible(window_) || !FloaterLookOf(settings_).alwaysOnTop) return;
  constexpr UINT kKeep = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
  SetWindowPos(window_, HWND_NOTOPMOST, 0, 0, 0, 0, kKeep);
  SetWindowPos(window_, HWND_TOPMOST, 0, 0, 0, 0, kKeep);
}

void BelovedOskaGrace::ApplyTopmost() {
  if (window_ == nullptr || !IsWindowVisible(window_)) return;
  const bool wanted = FloaterLookOf(settings_).alwaysOnTop;
  SetWindowPos(window_, wanted ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void BelovedOskaGrace::OnNotify(const NMHDR& header) {
  if (header.hwndFrom == options_ && header.code == LVN_ITEMCHANGED && !fillingOptions_) {
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
    const UINT newCheck = change.uNewState & LVIS_STATEIMAGEMASK;
    const UINT oldCheck = change.uOldState & LVIS_STATEIMAGEMASK;
    // The state image is 0 while an item is being inserted; only a real flip counts.
    if ((change.uChanged & LVIF_STATE) && newCheck != oldCheck && oldCheck != 0 && change.iItem >= 0) {
      OnOptionToggled(change.iItem, ListView_GetCheckState(options_, change.iItem) != FALSE);
    }
    return;
  }
  if (header.hwndFrom != grid_) return;
  if (header.code == NM_CLICK || header.code == NM_DBLCLK) {
    SelectRow(reinterpret_cast<const NMITEMACTIVATE&>(header).iItem);
  } else if (header.code == NM_RETURN) {
    SelectRow(ListView_GetNextItem(grid_, -1, LVNI_SELECTED));
  }
}

void BelovedOskaGrace::OnOptionToggled(int option, bool on) {
  if (option < 0 || option >= kFloaterOptionCount) return;
  if (option == static_cast<int>(FloaterOption::HookTheTypingWindow)) {
    OnHookToggled(on);
    return;
  }
  settings_.options[static_cast<size_t>(option)] = on;
  ApplyLook();
  Save();
}

void BelovedOskaGrace::OnHookToggled(bool on) {
  const WindowId previous = foreground_.Target();
  if (on) {
    const FloaterHookOutcome outcome = HookTypingWindow(host_.Selection(), previous, PreviousTitle());
    ShowMessage(outcome.message);
    settings_.Set(FloaterOption::HookTheTypingWindow, outcome.verdict == HookVerdict::Hooked);
    if (outcome.verdict != HookVerdict::Hooked) {
      fillingOptions_ = true;
      ListView_SetCheckState(options_, static_cast<int>(FloaterOption::HookTheTypingWindow), FALSE);
      fillingOptions_ = false;
    }
  } else {
    settings_.Set(FloaterOption::HookTheTypingWindow, false);
    const FloaterMessage message = UnhookTypingWindow(host_.Selection(), PreviousTitle());
    if (!message.text.empty()) ShowMessage(message);
  }
}

void BelovedOskaGrace::SelectRow(int row) {
  const int count = static_cast<int>(host_.OfferedKeymaps().size());
  if (row < 0 || row >= count) return;
  chosenNumber_ = row + 1;
  host_.SetFloaterChosenKeymap(chosenNumber_);
  host_.SelectKeymapNumber(chosenNumber_, false, false);
  const WindowId target = AutoFocusTarget(settings_, host_.Selection(), foreground_.Target());
  HWND focus = reinterpret_cast<HWND>(target);
  if (focus != nullptr && IsWindow(focus)) SetForegroundWindow(focus);
}

void BelovedOskaGrace::ShowRowOf(const std::u16string& keymap) {
  const auto& keymaps = host_.OfferedKeymaps();
  const auto found = std::find(keymaps.begin(), keymaps.end(), keymap);
  if (found == keymaps.end()) return;
  translit::win32::SelectListRow(grid_, static_cast<int>(found - keymaps.begin()));
}

void BelovedOskaGrace::TrackForeground() {
  HWND front = GetForegroundWindow();
  if (front == nullptr) return;
  if (front != lastFront_) {
    lastFront_ = front;
    // Wine raises a window that comes to the front above every other, topmost or not; the
    // floater takes its place back.
    if (front != window_) ReassertTopmost();
  }
  DWORD process = 0;
  GetWindowThreadProcessId(front, &process);
  wchar_t className[64] = {};
  GetClassNameW(front, className, 64);
  foreground_.Observe(reinterpret_cast<WindowId>(front), controls::FromWide(className),
                      process == GetCurrentProcessId());
  HWND target = PreviousForeground();
  if (target != nullptr && !IsWindow(target)) foreground_.Forget(reinterpret_cast<WindowId>(target));
}

HWND BelovedOskaGrace::PreviousForeground() const { return reinterpret_cast<HWND>(foreground_.Target()); }

std::u16string BelovedOskaGrace::PreviousTitle() const { return WindowTitle(PreviousForeground()); }

void BelovedOskaGrace::SavePlacement() {
  if (window_ == nullptr || IsIconic(window_) || !IsWindowVisible(window_)) return;
  RECT frame{};
  if (!GetWindowRect(window_, &frame)) return;
  settings_.left = frame.left;
  settings_.top = frame.top;
  settings_.width = frame.right - frame.left;
  settings_.height = frame.bottom - frame.top;
  Save();
}

void BelovedOskaGrace::Save() { WriteFloaterSettings(FloaterSettingsPath(folders_), settings_); }

void BelovedOskaGrace::ShowMessage(const FloaterMessage& message) const {
  MessageBoxW(window_, controls::ToWide(message.text).c_str(), controls::ToWide(message.title).c_str(),
              MB_OK | MB_ICONINFORMATION);
}

}  // namespace quilom::shell::win32
