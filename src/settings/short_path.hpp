#pragma once

#include <filesystem>
#include <functional>

// The path under which a file is opened for reading. On Windows the program installs a
// function that asks the system for the 8.3 short form, so that folder names outside the system
// code page still open with narrow-character APIs; the portable core needs no such detour.
namespace quilom::settings {

// Returns the short form of an existing path, or an empty path when there is none (the file
// does not exist or the system refused). The default returns `path` unchanged.
std::filesystem::path ShortPathOf(const std::filesystem::path& path);

using ShortPathFunction = std::function<std::filesystem::path(const std::filesystem::path&)>;

// Installs the function ShortPathOf calls and returns the previous one; an empty function
// restores the default. Meant to be called once at start-up, before any file is read.
ShortPathFunction SetShortPathFunction(ShortPathFunction function);

}  // namespace quilom::settings
