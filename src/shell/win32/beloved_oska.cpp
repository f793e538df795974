#include "shell/win32/beloved_oska.hpp"

#include <fstream>
#include <string>

#include "controls/win32/wide_text.hpp"
#include "settings/error_report.hpp"
#include "shell/app_identity.hpp"
#include "shell/offered_keymaps.hpp"
#include "shell/win32/drawn_icons.hpp"
#include "shell/win32/main_menu.hpp"
#include "shell/win32/process_snapshot.hpp"
#include "shell/win32/window_messages.hpp"
#include "text/utf.hpp"
#include "translit/typing_settings.hpp"
#include "translit/win32/settings_windows.hpp"

namespace quilom::shell::win32 {
namespace {

constexpr UINT_PTR kHealthTimer = 1;
constexpr UINT_PTR kExitPollTimer = 2;
constexpr UINT_PTR kForegroundTimer = 3;
constexpr UINT kExitPollMs = 200;
// Often enough that the window in front before a tray or floater click is known, rarely enough
// to cost nothing.
constexpr UINT kForegroundPollMs = 250;
constexpr int kClientWidth = 744;
constexpr int kClientHeight = 476;

std::filesystem::path ExecutableFolder() {
  std::wstring buffer(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length < buffer.size()) {
      buffer.resize(length);
      break;
    }
    buffer.resize(buffer.size() * 2);
  }
  return std::filesystem::path(buffer).parent_path();
}

int SystemDpi() {
  HDC screen = GetDC(nullptr);
  const int dpi = screen != nullptr ? GetDeviceCaps(screen, LOGPIXELSY) : 96;
  if (screen != nullptr) ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : 96;
}

}  // namespace

BelovedOska::BelovedOska(LaunchOptions options)
    : launch_(std::move(options)),
      folders_(settings::DataFolders::ForProgramFolder(ExecutableFolder())),
      output_(submitter_),
      engine_(output_),
      front_(engine_, keyState_, clock_, hookPlatform_) {}

BelovedOska::~BelovedOska() {
  front_.Hooks().RemoveAll();
  AttachSelectionState(nullptr);
  AttachTypingFront(nullptr);
  tray_.reset();
  if (appIcon_ != nullptr) DestroyIcon(appIcon_);
  if (languageIcon_ != nullptr) DestroyIcon(languageIcon_);
}

bool BelovedOska::Show(int showCommand) {
  dpi_ = SystemDpi();
  systemDpi_ = dpi_;
  const std::wstring className = controls::ToWide(kMainWindowClass);
  appIcon_ = DrawLetterIcon(L"Q", RGB(0x1F, 0x4E, 0x9A), GetSystemMetrics(SM_CXICON));
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof(windowClass);
  windowClass.lpfnWndProc = WindowProc;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hIcon = appIcon_;
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.lpszClassName = className.c_str();
  RegisterClassExW(&windowClass);
  const DWORD style = WS_OVERLAPPEDWINDOW & ~WS_MAXIMIZEBOX & ~WS_THICKFRAME;
  HMENU menu = BuildMainMenu(static_cast<bool>(toggleFloater_));
  RECT frame{0, 0, Scale(kClientWidth), Scale(kClientHeight)};
  AdjustWindowRectEx(&frame, style, TRUE, WS_EX_CONTROLPARENT);
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, className.c_str(), controls::ToWide(kMainWindowCaption).c_str(), style,
                            CW_USEDEFAULT, CW_USEDEFAULT, frame.right - frame.left, frame.bottom - frame.top, nullptr,
                            menu, GetModuleHandleW(nullptr), this);
  if (window_ == nullptr) return false;
  Load();
  const auto& typing = translit::LoadTypingSettings(folders_);
  if (typing.startSilently) {
    ShowWindow(window_, SW_HIDE);
  } else {
    ShowWindow(window_, showCommand);
    UpdateWindow(window_);
  }
  loaded_ = true;
  ShowStartupNotices();
  if (options_->Options().instantTyping && !front_.TypingOn()) SelectKeymapNumber(1, true, false);
  WriteStateFile();
  return true;
}

LRESULT CALLBACK BelovedOska::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* self = static_cast<BelovedOska*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<BelovedOska*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  try {
    return self->Handle(message, wParam, lParam);
  } catch (...) {
    // No exception may cross back into the system's window manager.
    return DefWindowProcW(window, message, wParam, lParam);
  }
}

LRESULT BelovedOska::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (tray_ && tray_->HandleTaskbarCreated(message)) {
    UpdateTrayTip();
    WriteStateFile();
    return 0;
  }
  if (message == translit::win32::OfferedKeymapsChangedMessage()) {
    ReloadOfferedKeymaps();
    return 0;
  }
  if (message == translit::win32::TypingSettingsChangedMessage()) {
    if (front_.TypingOn() && !selector_.State().ActiveKeymap.empty()) ApplyKeymap(selector_.State().ActiveKeymap);
    return 0;
  }
  switch (message) {
    case WM_CREATE:
      CreateControls();
      return 0;
    case WM_COMMAND:
      if (lParam == 0 && HIWORD(wParam) != 1 && LOWORD(wParam) >= kCmdStartStop) {
        OnMenuCommand(LOWORD(wParam));
      } else {
        OnOptionClick(LOWORD(wParam), HIWORD(wParam));
      }
      return 0;
    case kTrayCallbackMessage:
      OnTrayMessage(lParam);
      return 0;
    case kHotkeyNumberMessage:
      SelectKeymapNumber(static_cast<int>(wParam), true, true);
      return 0;
    case WM_TIMER:
      if (tray_ && tray_->OnTimer(wParam)) return 0;
      if (wParam == kHealthTimer) {
        LASTINPUTINFO lastInput{sizeof(LASTINPUTINFO), 0};
        if (GetLastInputInfo(&lastInput) && front_.CheckHealth(lastInput.dwTime)) WriteStateFile();
        ShowTypingState();
      } else if (wParam == kForegroundTimer) {
        PollForeground();
      } else if (wParam == kExitPollTimer) {
        std::error_code error;
        if (std::filesystem::exists(launch_.exitWhen, error)) {
          Close();
        } else {
          // A test watches the floater too, which changes without the main window hearing of it.
          WriteStateFile();
        }
      }
      return 0;
    case WM_ACTIVATE:
      active_ = LOWORD(wParam) != WA_INACTIVE;
      WriteStateFile();
      return DefWindowProcW(window_, message, wParam, lParam);
    case WM_SIZE:
      WriteStateFile();
      return DefWindowProcW(window_, message, wParam, lParam);
    case WM_DPICHANGED: {
      dpi_ = HIWORD(wParam);
      const auto* suggested = reinterpret_cast<const RECT*>(lParam);
      SetWindowPos(window_, nullptr, suggested->left, suggested->top, suggested->right - suggested->left,
                   suggested->bottom - suggested->top, SWP_NOZORDER | SWP_NOACTIVATE);
      LayoutControls();
      return 0;
    }
    case WM_CLOSE:
      if (translit::LoadTypingSettings(folders_).minimizeOnClose && !closing_) {
        HideToTray();
      } else {
        Close();
      }
      return 0;
    case WM_DESTROY:
      front_.Hooks().RemoveAll();
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window_, message, wParam, lParam);
  }
}

void BelovedOska::Load() {
  options_.emplace(settings::ToolSettings::For(folders_, settings::SettingsWindow::MainTyping));
  options_->Load();
  general_ = LoadGeneralSettings(folders_);
  offered_ = LoadOfferedKeymaps(folders_);
  selector_.State().FocusedMode = options_->Options().FocusedMode;
  ApplyHotkeyCodes();
  FillKeymapList();
  FillHotkeyList();
  ShowOptions();
  ShowGuide();
  ApplyKeymap(offered_.front());
  wordProcessIds_ = RunningProcessIds(u"winword.exe");
  output_.SetOwnEditor(editor_.get());
  output_.SetCaretSnapsToClusters(ProbeCaretSnapsToClusters(*editor_));
  front_.Processor().SetHotkeyDigitHandler([this](int vk) { OnHotkeyDigit(vk); });
  AttachTypingFront(&front_);
  AttachSelectionState(&selector_.State());
  front_.Hooks().InstallFocal();
  notifier_ = std::make_unique<NotifierPlayer>(folders_.mainDataFolder);
  AddTrayIcon();
  SetTimer(window_, kHealthTimer, HookHealth::kCheckIntervalMs, nullptr);
  SetTimer(window_, kForegroundTimer, kForegroundPollMs, nullptr);
  if (!launch_.exitWhen.empty()) SetTimer(window_, kExitPollTimer, kExitPollMs, nullptr);
  if (launch_.startTyping) SelectKeymapNumber(1, false, false);
  ShowTypingState();
}

// A list finalised in the catalogue takes effect at once: the keymap list, the numbers the
// hotkey reaches, the guide and the floater's grid all follow it. Typing goes on in the keymap
// in use; its hotkey number is looked up in the new list when it is next switched.
void BelovedOska::ReloadOfferedKeymaps() {
  offered_ = LoadOfferedKeymaps(folders_);
  FillKeymapList();
  ShowGuide();
  if (observer_ != nullptr) observer_->OnOfferedKeymapsChanged();
  WriteStateFile();
}

void BelovedOska::Close() {
  if (closing_) return;
  closing_ = true;
  KillTimer(window_, kHealthTimer);
  KillTimer(window_, kForegroundTimer);
  KillTimer(window_, kExitPollTimer);
  if (tray_) tray_->Remove();
  WriteStateFile();
  front_.Hooks().RemoveAll();
  AttachSelectionState(nullptr);
  AttachTypingFront(nullptr);
  DestroyWindow(window_);
}

namespace {

// A point as "X,Y" from the corner of `window`'s frame, for the tests to click at.
std::string FromCorner(HWND window, const RECT& screenRect) {
  RECT frame{};
  GetWindowRect(window, &frame);
  return std::to_string((screenRect.left + screenRect.right) / 2 - frame.left) + "," +
         std::to_string((screenRect.top + screenRect.bottom) / 2 - frame.top);
}

std::string CentreOf(HWND window, HWND control) {
  RECT rect{};
  GetWindowRect(control, &rect);
  return FromCorner(window, rect);
}

char Bit(bool on) { return on ? '1' : '0'; }

}  // namespace

void BelovedOska::WriteStateFile() const {
  if (launch_.stateFile.empty() || !loaded_) return;
  wchar_t caption[64] = {};
  GetWindowTextW(startStop_, caption, 64);
  RECT toolsItem{};
  GetMenuItemRect(window_, GetMenu(window_), 1, &toolsItem);
  RECT trayRect{};
  const bool trayShown = tray_ && tray_->Shown();
  const MainOptions& options = options_->Options();
  const auto temporary = std::filesystem::path(launch_.stateFile).concat(L".tmp");
  {
    std::ofstream file(temporary, std::ios::binary);
    file << "typing=" << (front_.TypingOn() ? "on" : "off") << "\n"
         << "active=" << (active_ ? 1 : 0) << "\n"
         << "iconic=" << (IsIconic(window_) ? 1 : 0) << "\n"
         << "visible=" << (IsWindowVisible(window_) ? 1 : 0) << "\n"
         << "button=" << CentreOf(window_, startStop_) << "\n"
         << "fastbox=" << CentreOf(window_, fastEditing_) << "\n"
         << "hotkeylist=" << CentreOf(window_, hotkeyList_) << "\n"
         << "sethotkey=" << CentreOf(window_, setHotkey_) << "\n"
         << "chartbutton=" << CentreOf(window_, chartButton_) << "\n"
         << "guidebutton=" << CentreOf(window_, gettingStartedButton_) << "\n"
         << "allapps=" << CentreOf(window_, allApplications_) << "\n"
         << "toolsmenu=" << FromCorner(window_, toolsItem) << "\n"
         << "reinstalls=" << front_.Health().ReinstallCount() << "\n"
         << "slowest=" << front_.Health().SlowestCallbackMs() << "\n"
         << "keymap=" << text::Utf16ToUtf8(selector_.State().ActiveKeymap) << "\n"
         << "caption=" << text::Utf16ToUtf8(controls::FromWide(caption)) << "\n"
         << "hotkey=" << text::Utf16ToUtf8(options.presentHotkey) << "\n"
         << "options=" << options.FocusedMode << Bit(options.instantTyping) << Bit(options.FastEditing == 1)
         << Bit(options.smartEditing) << Bit(options.copyPasteEditing) << Bit(options.includeHotkeys) << "\n"
         << "tray=" << Bit(trayShown) << "\n"
         << "floater=" << (observer_ != nullptr ? observer_->StateBits() : "-") << "\n";
    const std::u16string& keymap = selector_.State().ActiveKeymap;
    if (!keymap.empty())
      file << "trayface="
           << text::Utf16ToUtf8(controls::FromWide(LetterFace(IndicatorLetters(controls::ToWide(keymap))))) << "\n";
    if (trayShown && tray_->ScreenRect(trayRect))
      file << "trayicon=" << (trayRect.left + trayRect.right) / 2 << "," << (trayRect.top + trayRect.bottom) / 2
           << "\n";
  }
  std::error_code error;
  std::filesystem::rename(temporary, launch_.stateFile, error);
}

}  // namespace quilom::shell::win32
