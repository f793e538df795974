#include <fcntl.h>
#include <io.h>
#include <windows.h>
#include <shellapi.h>

#include "cli/platform.hpp"
#include "settings/win32/system_text_settings.hpp"
#include "text/utf.hpp"

namespace quilom::cli {

std::vector<std::string> Utf8Arguments(int, char**) {
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> args;
  for (int i = 1; i < count; ++i) {
    args.push_back(text::Utf16ToUtf8(reinterpret_cast<const char16_t*>(wide[i])));
  }
  LocalFree(wide);
  return args;
}

void PreparePlatform() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
  settings::win32::InstallSystemTextSettings();
}

std::filesystem::path ExecutableDir(const char*) {
  wchar_t buffer[32768];
  const DWORD length = GetModuleFileNameW(nullptr, buffer, 32768);
  return std::filesystem::path(std::wstring(buffer, length)).parent_path();
}

bool StandardErrorIsTerminal() { return _isatty(_fileno(stderr)) != 0; }

}  // namespace quilom::cli
