#include "cli/platform.hpp"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#include <shellapi.h>
#else
#include <unistd.h>
#endif

#include "text/utf.hpp"

namespace quilom::cli {

std::vector<std::string> Utf8Arguments(int argc, char** argv) {
#ifdef _WIN32
  (void)argc;
  (void)argv;
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> args;
  for (int i = 1; i < count; ++i) {
    args.push_back(text::Utf16ToUtf8(reinterpret_cast<const char16_t*>(wide[i])));
  }
  LocalFree(wide);
  return args;
#else
  return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
#endif
}

void PrepareStandardStreams() {
#ifdef _WIN32
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
#endif
}

std::filesystem::path ExecutableDir(const char* argv0) {
#ifdef _WIN32
  (void)argv0;
  wchar_t buffer[32768];
  const DWORD length = GetModuleFileNameW(nullptr, buffer, 32768);
  return std::filesystem::path(std::wstring(buffer, length)).parent_path();
#else
  std::error_code ec;
  const auto self = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (!ec) return self.parent_path();
  return std::filesystem::absolute(argv0).parent_path();
#endif
}

bool StandardErrorIsTerminal() {
#ifdef _WIN32
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(STDERR_FILENO) != 0;
#endif
}

}  // namespace quilom::cli
