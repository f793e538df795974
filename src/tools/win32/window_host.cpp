#include "tools/win32/window_host.hpp"

// clang-format off
#include <commctrl.h>
#include <shellapi.h>
// clang-format on

#include <vector>

#include "tools/win32/tool_controls.hpp"
#include "tools/win32/tool_windows.hpp"

namespace quilom::tools::win32 {
namespace {

std::vector<std::wstring> Arguments() {
  int count = 0;
  LPWSTR* list = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::wstring> arguments;
  for (int i = 1; i < count; ++i) arguments.emplace_back(list[i]);
  LocalFree(list);
  return arguments;
}

}  // namespace

int RunWindowHost(HINSTANCE instance, const WindowHost& host) {
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);

  const std::wstring programFolder = ProgramFolder();
  auto folders = settings::DataFolders::ForProgramFolder(programFolder);
  const auto arguments = Arguments();
  std::vector<std::wstring> windows;
  for (size_t i = 0; i + 1 < arguments.size(); i += 2) {
    if (arguments[i] == L"--data") {
      folders = settings::DataFolders::ForDataRoot(arguments[i + 1]);
      folders.programFolder = programFolder;
    } else if (arguments[i] == L"--window") {
      windows.push_back(arguments[i + 1]);
    }
  }
  if (windows.empty()) windows.push_back(host.defaultWindow);
  for (const auto& name : windows) {
    if (!host.open(name, instance, folders)) {
      const std::wstring message = L"Unknown window \"" + name + L"\". Use " + host.knownNames + L".";
      MessageBoxW(nullptr, message.c_str(), L"Quilom++", MB_OK | MB_ICONINFORMATION);
      return 2;
    }
  }

  MSG message;
  while (AnyToolWindowOpen() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (HandleToolWindowMessage(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

}  // namespace quilom::tools::win32
