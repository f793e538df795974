// Opens the converter window on its own, for the end-to-end tests and for trying the window
// without the main program. Switches (all optional):
//   --data DIR            data root to use instead of "Sorvin" beside the program
//   --fake-word none|N    instead of attaching to Word: no Word running (none), or a stand-in
//                         Word with N open documents (test only; see fake_word_dispatch.hpp)
//   --selection S,E       the stand-in's selection (character positions)
//   --text TEXT           the stand-in's document text (read by the plain-text variant)
//   --fail METHOD,N       the stand-in's METHOD fails from its N-th call on
//   --log FILE            append every message box text and the stand-in's calls to FILE
//   --ready-file FILE     written once the window has loaded its lists and settings
//   --exit-when FILE      close the window when FILE appears
// The other system headers need the types of <windows.h>.
// clang-format off
#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>
// clang-format on

#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "converter/win32/converter_window.hpp"
#include "converter/win32/dispatch_object.hpp"
#include "converter/win32/host/fake_word_dispatch.hpp"
#include "settings/error_report.hpp"
#include "text/utf.hpp"

namespace quilom::converter::win32::host {
namespace {

constexpr UINT kReadyMessage = WM_APP + 40;
constexpr UINT_PTR kExitTimer = 1;

struct HostOptions {
  std::filesystem::path dataRoot;
  bool fakeWord = false;
  int documents = -1;  // -1: no Word at all
  int selectionStart = 0;
  int selectionEnd = 0;
  std::wstring text;
  std::wstring failingMethod;
  int failFromCall = 1;
  std::filesystem::path log;
  std::filesystem::path readyFile;
  std::filesystem::path exitWhen;
};

std::filesystem::path exitWhen;
HWND converterWindow = nullptr;

HostOptions ParseOptions() {
  HostOptions options;
  int count = 0;
  LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; i + 1 < count; i += 2) {
    const std::wstring name = words[i];
    const std::wstring value = words[i + 1];
    if (name == L"--data") options.dataRoot = value;
    if (name == L"--log") options.log = value;
    if (name == L"--ready-file") options.readyFile = value;
    if (name == L"--exit-when") options.exitWhen = value;
    if (name == L"--text") options.text = value;
    if (name == L"--fake-word") {
      options.fakeWord = true;
      options.documents = value == L"none" ? -1 : _wtoi(value.c_str());
    }
    if (name == L"--fail") {
      const auto comma = value.find(L',');
      options.failingMethod = value.substr(0, comma);
      if (comma != std::wstring::npos) options.failFromCall = _wtoi(value.c_str() + comma + 1);
    }
    if (name == L"--selection") {
      options.selectionStart = _wtoi(value.c_str());
      const auto comma = value.find(L',');
      options.selectionEnd = comma == std::wstring::npos ? options.selectionStart : _wtoi(value.c_str() + comma + 1);
    }
  }
  LocalFree(words);
  return options;
}

void AppendLine(const std::filesystem::path& file, std::u16string_view line) {
  if (file.empty()) return;
  std::u16string flat(line);
  for (char16_t& c : flat) {
    if (c == u'\r') c = u' ';
    if (c == u'\n') c = u'|';
  }
  std::ofstream out(file, std::ios::binary | std::ios::app);
  out << text::Utf16ToUtf8(flat) << "\n";
}

class FakeWordConnector final : public window::WordConnector {
 public:
  explicit FakeWordConnector(const HostOptions& options) : state_(std::make_shared<FakeWordState>()) {
    state_->documentCount = options.documents;
    state_->selectionStart = options.selectionStart;
    state_->selectionEnd = options.selectionEnd;
    state_->contentText = options.text;
    state_->logFile = options.log;
    state_->failingMethod = options.failingMethod;
    state_->failFromCall = options.failFromCall;
    running_ = options.documents >= 0;
  }
  window::AutomationRef AttachRunning() override {
    if (!running_) return nullptr;
    IDispatch* word = CreateFakeWord(state_);
    auto application = std::make_shared<DispatchObject>(word);
    word->Release();
    return application;
  }

 private:
  std::shared_ptr<FakeWordState> state_;
  bool running_ = false;
};

// Problem reports go to the log as well as to the screen, so a test can read them.
class LoggingReporter final : public ErrorReporter {
 public:
  explicit LoggingReporter(std::filesystem::path log) : log_(std::move(log)) {}
  void Show(std::u16string_view title, std::u16string_view message) noexcept override {
    try {
      AppendLine(log_, u"report: " + std::u16string(message));
      const std::wstring text(message.begin(), message.end());
      const std::wstring caption(title.begin(), title.end());
      MessageBoxW(converterWindow, text.c_str(), caption.c_str(), MB_OK | MB_ICONINFORMATION);
    } catch (...) {
    }
  }

 private:
  std::filesystem::path log_;
};

void CALLBACK CheckExit(HWND, UINT, UINT_PTR, DWORD) {
  std::error_code error;
  if (!exitWhen.empty() && std::filesystem::exists(exitWhen, error) && IsWindow(converterWindow)) {
    DestroyWindow(converterWindow);
  }
}

int Run(HINSTANCE instance) {
  const HostOptions host = ParseOptions();
  SetErrorReporter(std::make_shared<LoggingReporter>(host.log));
  INITCOMMONCONTROLSEX controls{sizeof(INITCOMMONCONTROLSEX), ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);

  ConverterWindowOptions options;
  options.dataRoot = host.dataRoot;
  if (host.fakeWord) options.connector = std::make_shared<FakeWordConnector>(host);
  options.messageWitness = [log = host.log](std::u16string_view text) {
    AppendLine(log, u"message: " + std::u16string(text));
  };
  converterWindow = ShowConverterWindow(instance, nullptr, options);
  if (converterWindow == nullptr) return 1;
  exitWhen = host.exitWhen;
  SetTimer(nullptr, kExitTimer, 200, CheckExit);
  // Posted after the window's own load message, so it arrives once the lists are in.
  PostThreadMessageW(GetCurrentThreadId(), kReadyMessage, 0, 0);

  MSG message;
  while (IsWindow(converterWindow) && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.hwnd == nullptr && message.message == kReadyMessage && !host.readyFile.empty()) {
      std::ofstream(host.readyFile) << "ready\n";
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

}  // namespace
}  // namespace quilom::converter::win32::host

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  try {
    return quilom::converter::win32::host::Run(instance);
  } catch (...) {
    return 1;
  }
}
