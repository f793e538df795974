#include <csignal>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "cli/command.hpp"
#include "cli/platform.hpp"
#include "settings/file_replacement.hpp"

namespace {

// Ctrl+C or a kill in the middle of writing an output leaves neither a half-written output (the
// target is only ever replaced whole) nor the temporary it was being written to.
extern "C" void RemoveTemporaryAndStop(int signal) {
  quilom::settings::RemovePendingTemporary();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> args = quilom::cli::Utf8Arguments(argc, argv);
  quilom::cli::PreparePlatform();
  std::signal(SIGINT, RemoveTemporaryAndStop);
  std::signal(SIGTERM, RemoveTemporaryAndStop);
  const std::filesystem::path exeDir = quilom::cli::ExecutableDir(argc > 0 ? argv[0] : "");
  return quilom::cli::RunQuilom(args, std::cin, std::cout, std::cerr, exeDir, quilom::cli::StandardErrorIsTerminal());
}
