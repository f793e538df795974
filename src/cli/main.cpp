#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "cli/command.hpp"
#include "cli/platform.hpp"

int main(int argc, char** argv) {
  std::vector<std::string> args = quilom::cli::Utf8Arguments(argc, argv);
  quilom::cli::PreparePlatform();
  const std::filesystem::path exeDir = quilom::cli::ExecutableDir(argc > 0 ? argv[0] : "");
  return quilom::cli::RunQuilom(args, std::cin, std::cout, std::cerr, exeDir, quilom::cli::StandardErrorIsTerminal());
}
