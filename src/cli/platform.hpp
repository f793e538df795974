#pragma once

#include <filesystem>
#include <string>
#include <vector>

// The few places where the command line meets the operating system.
namespace quilom::cli {

// The arguments after the program name, as UTF-8 (on Windows, from the wide command line).
std::vector<std::string> Utf8Arguments(int argc, char** argv);

// Binary standard streams, so that UTF-8 and legacy bytes pass unchanged; on Windows also the
// system's code page and short paths for the settings core.
void PreparePlatform();

std::filesystem::path ExecutableDir(const char* argv0);

bool StandardErrorIsTerminal();

}  // namespace quilom::cli
