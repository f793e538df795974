#include "shell/win32/beloved_oska.hpp"

#include <fstream>
#include <string>

#include "controls/win32/wide_text.hpp"
#include "settings/error_report.hpp"
#include "shell/app_identity.hpp"
#include "shell/win32/process_snapshot.hpp"
#include "translit/keymap_file.hpp"
#include "version.hpp"

namespace quilom::shell::win32 {
namespace {

constexpr int kStartStopId = 101;
constexpr int kEditorId = 102;
constexpr UINT_PTR kHealthTimer = 1;
constexpr UINT_PTR kExitPollTimer = 2;
constexpr UINT kExitPollMs = 200;
constexpr std::u16string_view kDefaultScheme = u"Tamil-Unicode-PhoneticTransliteration";

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

HWND MakeChild(HWND parent, const wchar_t* className, const wchar_t* text, DWORD style, int x, int y, int width,
               int height, int id = 0) {
  return CreateWindowExW(0, className, text, WS_CHILD | WS_VISIBLE | style, x, y, width, height, parent,
                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
}

std::wstring VersionLabel() {
  return L"V " + std::to_wstring(kVersionMajor) + L"." + std::to_wstring(kVersionMinor) + L"." +
         std::to_wstring(kVersionRevision);
}

}  // namespace

BelovedOska::BelovedOska(LaunchOptions options)
    : options_(std::move(options)),
      uiFont_(L"Segoe UI", 10),
      titleFont_(L"Segoe UI", 13, true),
      tamilFont_(controls::TamilFace(), 14),
      exampleFont_(controls::TamilFace(), 12),
      output_(submitter_),
      engine_(output_),
      front_(engine_, keyState_, clock_, hookPlatform_) {}

BelovedOska::~BelovedOska() {
  front_.Hooks().RemoveAll();
  AttachTypingFront(nullptr);
}

bool BelovedOska::Show(int showCommand) {
  const std::wstring className = controls::ToWide(kMainWindowClass);
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof(windowClass);
  windowClass.lpfnWndProc = WindowProc;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hIcon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1));
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.lpszClassName = className.c_str();
  RegisterClassExW(&windowClass);
  window_ = CreateWindowExW(0, className.c_str(), controls::ToWide(kMainWindowCaption).c_str(),
                            WS_OVERLAPPEDWINDOW & ~WS_MAXIMIZEBOX & ~WS_THICKFRAME, CW_USEDEFAULT, CW_USEDEFAULT, 720,
                            440, nullptr, nullptr, GetModuleHandleW(nullptr), this);
  if (window_ == nullptr) return false;
  Load();
  ShowWindow(window_, showCommand);
  UpdateWindow(window_);
  loaded_ = true;
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
  switch (message) {
    case WM_CREATE:
      CreateControls();
      return 0;
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_TIMER:
      OnTimer(wParam);
      return 0;
    case WM_ACTIVATE:
      active_ = LOWORD(wParam) != WA_INACTIVE;
      WriteStateFile();
      return DefWindowProcW(window_, message, wParam, lParam);
    case WM_SIZE:
      WriteStateFile();
      return DefWindowProcW(window_, message, wParam, lParam);
    case WM_CLOSE:
      Close();
      return 0;
    case WM_DESTROY:
      front_.Hooks().RemoveAll();
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window_, message, wParam, lParam);
  }
}

void BelovedOska::CreateControls() {
  HWND title = MakeChild(window_, L"STATIC", L"Quilom++ : type Tamil in any application", SS_LEFT, 20, 14, 660, 30);
  titleFont_.ApplyTo(title);
  HWND help = MakeChild(window_, L"STATIC",
                        L"Press the button below, then type Tamil in English letters (phonetic keymap) in any "
                        L"program. For example, vaNakkam gives:",
                        SS_LEFT, 20, 50, 440, 40);
  uiFont_.ApplyTo(help);
  // The Tamil has its own label: the interface font may have no Tamil, a Tamil font no Latin.
  HWND example =
      MakeChild(window_, L"STATIC", L"\x0BB5\x0BA3\x0B95\x0BCD\x0B95\x0BAE\x0BCD", SS_LEFT, 470, 62, 220, 34);
  exampleFont_.ApplyTo(example);
  startStop_ = MakeChild(window_, L"BUTTON", L"", BS_PUSHBUTTON | WS_TABSTOP, 20, 98, 260, 36, kStartStopId);
  uiFont_.ApplyTo(startStop_);
  status_ = MakeChild(window_, L"STATIC", L"", SS_LEFT, 300, 106, 380, 24);
  uiFont_.ApplyTo(status_);
  HWND tryHere = MakeChild(window_, L"STATIC", L"Try it here too:", SS_LEFT, 20, 148, 300, 22);
  uiFont_.ApplyTo(tryHere);
  editor_ =
      std::make_unique<controls::RichEditBox>(controls::RichEditBox::Create(window_, kEditorId, {20, 172, 680, 352}));
  tamilFont_.ApplyTo(editor_->Handle());
  version_ = MakeChild(window_, L"STATIC", L"", SS_RIGHT, 520, 362, 160, 22);
  uiFont_.ApplyTo(version_);
}

void BelovedOska::Load() {
  folders_ = settings::DataFolders::ForProgramFolder(ExecutableFolder());
  LoadKeymap();
  wordProcessIds_ = RunningProcessIds(u"winword.exe");
  output_.SetOwnEditor(editor_.get());
  output_.SetCaretSnapsToClusters(ProbeCaretSnapsToClusters(*editor_));
  SetWindowTextW(version_, VersionLabel().c_str());
  AttachTypingFront(&front_);
  front_.Hooks().InstallFocal();
  SetTimer(window_, kHealthTimer, HookHealth::kCheckIntervalMs, nullptr);
  if (!options_.exitWhen.empty()) SetTimer(window_, kExitPollTimer, kExitPollMs, nullptr);
  if (options_.startTyping) front_.StartTyping();
  ShowTypingState();
}

void BelovedOska::LoadKeymap() {
  std::shared_ptr<const translit::PhoneticKeymap> tables;
  const auto outcome = translit::LoadPhoneticKeymap(folders_.keymapFolder, kDefaultScheme, {}, tables);
  if (outcome == translit::LoadOutcome::Missing) {
    const auto path = translit::PhoneticKeymapPath(folders_.keymapFolder, kDefaultScheme);
    ReportError(u"App Load", {2, u"LoadPhoneticKeymap",
                              u"The keymap file is missing, so keys will type as themselves: " +
                                  controls::FromWide(path.wstring())});
  }
  if (tables) engine_.SetKeymap(tables);
}

void BelovedOska::OnCommand(int id, int code) {
  if (id == kStartStopId && code == BN_CLICKED) StartStopGlobalTyping();
  // Typing goes straight into our own box while it has the focus: synthetic input aimed at our
  // own window would come back through our own hook.
  if (id == kEditorId && code == EN_SETFOCUS) output_.SetTypeIntoOwnEditor(true);
  if (id == kEditorId && code == EN_KILLFOCUS) output_.SetTypeIntoOwnEditor(false);
}

void BelovedOska::StartStopGlobalTyping() {
  // Starting reads the keymap file again, so that a user's edit to it takes effect.
  if (!front_.TypingOn()) LoadKeymap();
  front_.ToggleTyping();
  ShowTypingState();
  WriteStateFile();
}

void BelovedOska::ShowTypingState() {
  const bool on = front_.TypingOn();
  SetWindowTextW(startStop_, controls::ToWide(StartStopCaption(on)).c_str());
  SetWindowTextW(status_, on ? L"Typing is ON: Tamil phonetic keymap" : L"Typing is OFF");
}

void BelovedOska::OnTimer(UINT_PTR id) {
  if (id == kHealthTimer) {
    LASTINPUTINFO lastInput{sizeof(LASTINPUTINFO), 0};
    if (GetLastInputInfo(&lastInput) && front_.CheckHealth(lastInput.dwTime)) WriteStateFile();
    ShowTypingState();
  } else if (id == kExitPollTimer) {
    std::error_code error;
    if (std::filesystem::exists(options_.exitWhen, error)) Close();
  }
}

void BelovedOska::Close() {
  if (closing_) return;
  closing_ = true;
  WriteStateFile();
  KillTimer(window_, kHealthTimer);
  KillTimer(window_, kExitPollTimer);
  front_.Hooks().RemoveAll();
  AttachTypingFront(nullptr);
  DestroyWindow(window_);
}

void BelovedOska::WriteStateFile() const {
  if (options_.stateFile.empty() || !loaded_) return;
  RECT windowRect{};
  RECT buttonRect{};
  GetWindowRect(window_, &windowRect);
  GetWindowRect(startStop_, &buttonRect);
  const auto temporary = std::filesystem::path(options_.stateFile).concat(L".tmp");
  {
    std::ofstream file(temporary, std::ios::binary);
    file << "typing=" << (front_.TypingOn() ? "on" : "off") << "\n"
         << "active=" << (active_ ? 1 : 0) << "\n"
         << "iconic=" << (IsIconic(window_) ? 1 : 0) << "\n"
         << "button=" << (buttonRect.left + buttonRect.right) / 2 - windowRect.left << ","
         << (buttonRect.top + buttonRect.bottom) / 2 - windowRect.top << "\n"
         << "reinstalls=" << front_.Health().ReinstallCount() << "\n"
         << "slowest=" << front_.Health().SlowestCallbackMs() << "\n";
  }
  std::error_code error;
  std::filesystem::rename(temporary, options_.stateFile, error);
}

}  // namespace quilom::shell::win32
