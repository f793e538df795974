#include "shell/win32/launch_options.hpp"

#include <windows.h>
// After windows.h, which it builds on.
#include <shellapi.h>

namespace quilom::shell::win32 {

LaunchOptions ParseLaunchOptions(const std::vector<std::wstring>& args) {
  LaunchOptions options;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const bool hasValue = i + 1 < args.size();
    if (args[i] == L"--start-typing") {
      options.startTyping = true;
    } else if (args[i] == L"--state-file" && hasValue) {
      options.stateFile = args[++i];
    } else if (args[i] == L"--exit-when" && hasValue) {
      options.exitWhen = args[++i];
    }
  }
  return options;
}

std::vector<std::wstring> CommandLineWords() {
  int count = 0;
  LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::wstring> result;
  if (words == nullptr) return result;
  for (int i = 1; i < count; ++i) result.emplace_back(words[i]);
  LocalFree(words);
  return result;
}

}  // namespace quilom::shell::win32
