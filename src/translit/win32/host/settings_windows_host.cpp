// Opens the typing settings windows and the catalogue alone, without the typing program: for
// trying them out and for the end-to-end tests.
// Usage: QuilomSettingsHost.exe [--data DIR] --window NAME [--window NAME ...] with NAME one of
// qmset, qmset2, qmAllXmls. Ends when the last window closes.
// clang-format off
#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>
// clang-format on

#include <memory>
#include <string>
#include <vector>

#include "settings/data_folders.hpp"
#include "settings/error_report.hpp"
#include "shell/win32/message_box_reporter.hpp"
#include "tools/win32/tool_controls.hpp"
#include "tools/win32/tool_windows.hpp"
#include "translit/win32/settings_windows.hpp"

namespace {

using namespace quilom;

std::vector<std::wstring> Arguments() {
  int count = 0;
  LPWSTR* list = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::wstring> arguments;
  for (int i = 1; i < count; ++i) arguments.emplace_back(list[i]);
  LocalFree(list);
  return arguments;
}

bool OpenWindow(const std::wstring& name, HINSTANCE instance, const settings::DataFolders& folders) {
  using namespace translit::win32;
  if (name == L"qmset") return ShowTypingSettingsWindow(instance, nullptr, folders) != nullptr;
  if (name == L"qmset2") return ShowTypingSettingsMoreWindow(instance, nullptr, folders) != nullptr;
  if (name == L"qmAllXmls") return ShowKeymapCatalogueWindow(instance, nullptr, folders) != nullptr;
  return false;
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);
  SetErrorReporter(std::make_shared<shell::win32::MessageBoxReporter>());

  auto folders = settings::DataFolders::ForProgramFolder(tools::win32::ProgramFolder());
  const auto arguments = Arguments();
  std::vector<std::wstring> windows;
  for (size_t i = 0; i + 1 < arguments.size(); i += 2) {
    if (arguments[i] == L"--data") folders = settings::DataFolders::ForDataRoot(arguments[i + 1]);
    if (arguments[i] == L"--window") windows.push_back(arguments[i + 1]);
  }
  if (windows.empty()) windows.push_back(L"qmset");
  for (const auto& name : windows) {
    if (!OpenWindow(name, instance, folders)) {
      const std::wstring message = L"Unknown window \"" + name + L"\". Use qmset, qmset2 or qmAllXmls.";
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
