#include "cli/platform.hpp"

#include <unistd.h>

// The POSIX side of the command line; the Windows side is win32/platform.cpp.
namespace quilom::cli {

std::vector<std::string> Utf8Arguments(int argc, char** argv) {
  return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

void PreparePlatform() {}

std::filesystem::path ExecutableDir(const char* argv0) {
  std::error_code ec;
  const auto self = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (!ec) return self.parent_path();
  return std::filesystem::absolute(argv0).parent_path();
}

bool StandardErrorIsTerminal() { return isatty(STDERR_FILENO) != 0; }

}  // namespace quilom::cli
