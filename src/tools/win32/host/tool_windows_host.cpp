// Opens the text tools' windows alone, without the typing program: for trying them out and for
// the end-to-end tests. Usage: QuilomToolsHost.exe [--data DIR] --window NAME [--window NAME ...]
// with NAME one of rt, rt2, at, at2, url, startup. Ends when the last window closes.
#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>

#include <memory>
#include <string>
#include <vector>

#include "settings/data_folders.hpp"
#include "settings/error_report.hpp"
#include "tools/win32/tool_controls.hpp"
#include "tools/win32/tool_windows.hpp"

namespace {

using namespace quilom;

class MessageBoxReporter final : public ErrorReporter {
 public:
  void Show(std::u16string_view title, std::u16string_view message) noexcept override {
    const std::wstring wideTitle(title.begin(), title.end());
    const std::wstring wideMessage(message.begin(), message.end());
    MessageBoxW(nullptr, wideMessage.c_str(), wideTitle.c_str(), MB_OK | MB_ICONINFORMATION);
  }
};

std::vector<std::wstring> Arguments() {
  int count = 0;
  LPWSTR* list = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::wstring> arguments;
  for (int i = 1; i < count; ++i) arguments.emplace_back(list[i]);
  LocalFree(list);
  return arguments;
}

bool OpenWindow(const std::wstring& name, HINSTANCE instance, const settings::DataFolders& folders) {
  using namespace tools::win32;
  if (name == L"rt") return ShowReverseTransliterationWindow(instance, nullptr, folders) != nullptr;
  if (name == L"rt2") return ShowReverseCompanionWindow(instance, nullptr, folders) != nullptr;
  if (name == L"at") return ShowAutoTransliteratorWindow(instance, nullptr, folders) != nullptr;
  if (name == L"at2") {
    return ShowAutoTransliteratorWindow(instance, nullptr, folders, AutoLayout::SideBySide) != nullptr;
  }
  if (name == L"url") return ShowUrlNormalizerWindow(instance, nullptr, folders) != nullptr;
  if (name == L"startup") return ShowStartupLinkWindow(instance, nullptr, folders) != nullptr;
  return false;
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);
  SetErrorReporter(std::make_shared<MessageBoxReporter>());

  const std::wstring programFolder = tools::win32::ProgramFolder();
  auto folders = settings::DataFolders::ForProgramFolder(programFolder);
  const auto arguments = Arguments();
  std::vector<std::wstring> windows;
  for (size_t i = 0; i + 1 < arguments.size(); i += 2) {
    if (arguments[i] == L"--data") {
      folders = settings::DataFolders::ForDataRoot(arguments[i + 1]);
      // The start-up link still points at the program beside this host.
      folders.programFolder = programFolder;
    } else if (arguments[i] == L"--window") {
      windows.push_back(arguments[i + 1]);
    }
  }
  if (windows.empty()) windows.push_back(L"rt");
  for (const auto& name : windows) {
    if (!OpenWindow(name, instance, folders)) {
      const std::wstring message = L"Unknown window \"" + name + L"\". Use rt, rt2, at, at2, url or startup.";
      MessageBoxW(nullptr, message.c_str(), L"Quilom++", MB_OK | MB_ICONINFORMATION);
      return 2;
    }
  }

  MSG message;
  while (tools::win32::AnyToolWindowOpen() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (tools::win32::HandleToolWindowMessage(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
