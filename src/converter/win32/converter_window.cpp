#include "converter/win32/converter_window.hpp"

#include <objbase.h>

#include <exception>

#include "converter/win32/converter_window_class.hpp"
#include "converter/win32/word_automation.hpp"
#include "settings/error_report.hpp"
#include "text/utf.hpp"

namespace quilom::converter::win32 {
namespace {

constexpr wchar_t kWindowClass[] = L"QuilomTamilFontsConverter";
constexpr wchar_t kTitle[] = L"Quilom++ : Tamil Fonts Converter";
constexpr int kClientWidth = 720;
constexpr int kClientHeight = 470;

HWND openWindow = nullptr;

std::filesystem::path ProgramFolder() {
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return std::filesystem::path(path).parent_path();
}

bool RegisterWindowClass(HINSTANCE instance) {
  WNDCLASSEXW windowClass{sizeof(WNDCLASSEXW)};
  if (GetClassInfoExW(instance, kWindowClass, &windowClass)) return true;
  windowClass.lpfnWndProc = ConverterWindow::Procedure;
  windowClass.hInstance = instance;
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  windowClass.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
  windowClass.lpszClassName = kWindowClass;
  return RegisterClassExW(&windowClass) != 0;
}

void ReportUnexpected(const char* what) {
  ReportError(u"App Load", {0, u"Quilom++", what != nullptr ? text::Utf8ToUtf16(what) : u"unexpected failure"});
}

}  // namespace

ConverterWindow::ConverterWindow(HINSTANCE instance, const ConverterWindowOptions& options)
    : instance_(instance),
      options_(options),
      folders_(options.dataRoot.empty() ? settings::DataFolders::ForProgramFolder(ProgramFolder())
                                        : settings::DataFolders::ForDataRoot(options.dataRoot)),
      converterFolder_(folders_.ModuleDataFolder(kConverterModule)),
      settings_(settings::ToolSettings::For(folders_, settings::SettingsWindow::FontsConverter)) {
  // Word's objects are apartment-threaded; the window's thread is the GUI thread.
  const HRESULT hr = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  comReady_ = SUCCEEDED(hr);
  if (options_.connector == nullptr) options_.connector = std::make_shared<WordAutomationConnector>();
}

ConverterWindow::~ConverterWindow() {
  if (comReady_) CoUninitialize();
}

bool ConverterWindow::Create(HWND owner) {
  if (!RegisterWindowClass(instance_)) return false;
  HDC screen = GetDC(nullptr);
  dpi_ = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  constexpr DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
  RECT bounds{0, 0, Scale(kClientWidth), Scale(kClientHeight)};
  AdjustWindowRectEx(&bounds, style, FALSE, WS_EX_CONTROLPARENT);
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, kWindowClass, kTitle, style, CW_USEDEFAULT, CW_USEDEFAULT,
                            bounds.right - bounds.left, bounds.bottom - bounds.top, owner, nullptr, instance_, this);
  return window_ != nullptr;
}

LRESULT CALLBACK ConverterWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* self = static_cast<ConverterWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<ConverterWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  try {
    if (message == WM_NCDESTROY) {
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      if (openWindow == window) openWindow = nullptr;
      delete self;
      return DefWindowProcW(window, message, wParam, lParam);
    }
    return self->Handle(message, wParam, lParam);
  } catch (const std::exception& e) {
    ReportUnexpected(e.what());
  } catch (...) {
    ReportUnexpected(nullptr);
  }
  return 0;
}

LRESULT ConverterWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      prompter_ = std::make_unique<MessagePrompter>(window_);
      prompter_->SetWitness(options_.messageWitness);
      CreateControls();
      StartDialogNavigation(window_);
      return 0;
    case WM_APP:
      LoadWindow();
      return 0;
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case DM_GETDEFID:
      return MAKELONG(kCmdConvert, DC_HASDEFID);
    case WM_NEXTDLGCTL:
      // IsDialogMessage moves the focus (Tab, label mnemonics) with this dialog message, which
      // a plain window's default procedure ignores.
      MoveFocus(wParam, LOWORD(lParam) != 0);
      return 0;
    case WM_DESTROY:
      StopDialogNavigation(window_);
      return 0;
    default:
      return DefWindowProcW(window_, message, wParam, lParam);
  }
}

void ConverterWindow::MoveFocus(WPARAM target, bool isHandle) {
  HWND next = isHandle ? reinterpret_cast<HWND>(target) : GetNextDlgTabItem(window_, GetFocus(), target != 0);
  if (next == nullptr) return;
  SetFocus(next);
}

void ConverterWindow::OnCommand(int id, int code) {
  switch (id) {
    case kCmdConvert:
    case IDOK:
      if (code == BN_CLICKED) OnConvert();
      break;
    case IDCANCEL:
      DestroyWindow(window_);
      break;
    case kCmdSwap:
      if (code == BN_CLICKED) OnSwap();
      break;
    case kCmdGenFontsList:
      if (code == BN_CLICKED) OnGenerateFontsList();
      break;
    case kCmdConvertQuotes:
      if (code == BN_CLICKED) OnConvertQuotes();
      break;
    case kChbConvertAsPlainText:
      if (code == BN_CLICKED) OnPlainTextClick();
      break;
    case kChbNewForm:
      if (code == BN_CLICKED) Save(window::kIrRiReeFormKey);
      break;
    case kChbVowelSigns:
      if (code == BN_CLICKED) Save(window::kVowelSignsKey);
      break;
    case kOptNormalQ:
    case kOptDecorQ:
      if (code == BN_CLICKED) Save(window::kQuotesFormatKey);
      break;
    case kLbxFrom:
    case kLbxTo:
    case kLbxUniFonts:
    case kLbxNonUniFonts:
      if (code == LBN_SELCHANGE) OnListClick(id);
      break;
    case kCmbToQuote:
    case kCmbToQuoteEng:
      if (code == CBN_SELCHANGE) OnQuoteChoice(id);
      break;
    default:
      break;
  }
}

HWND ShowConverterWindow(HINSTANCE instance, HWND owner, const ConverterWindowOptions& options) {
  if (openWindow != nullptr && IsWindow(openWindow)) {
    ShowWindow(openWindow, SW_RESTORE);
    SetForegroundWindow(openWindow);
    return openWindow;
  }
  try {
    auto window = std::make_unique<ConverterWindow>(instance, options);
    if (!window->Create(owner)) {
      ReportError(u"App Load",
                  {static_cast<long>(GetLastError()), u"Quilom++", u"the converter window could not be made"});
      return nullptr;
    }
    ConverterWindow* self = window.release();  // the window deletes it at WM_NCDESTROY
    openWindow = self->Handle();
    ShowWindow(openWindow, SW_SHOW);
    UpdateWindow(openWindow);
    PostMessageW(openWindow, WM_APP, 0, 0);  // the lists load once the window is on screen
    return openWindow;
  } catch (const std::exception& e) {
    ReportUnexpected(e.what());
  } catch (...) {
    ReportUnexpected(nullptr);
  }
  return nullptr;
}

}  // namespace quilom::converter::win32
