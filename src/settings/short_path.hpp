#pragma once

#include <filesystem>
#include <functional>

// The path under which a file is opened for reading. The core opens files through wide-character
// paths, so names outside the system code page open without help, on Windows too; the default
// therefore hands the path back unchanged. The Windows program may install a function built on
// GetShortPathNameW (into a 260-character buffer, cut to the length returned) for the places that
// still pass paths to narrow-character interfaces; tests install one to observe or fail reads.
namespace quilom::settings {

// Returns the short form of an existing path, or an empty path when there is none (the file
// does not exist or the system refused). The default returns `path` unchanged.
std::filesystem::path ShortPathOf(const std::filesystem::path& path);

using ShortPathFunction = std::function<std::filesystem::path(const std::filesystem::path&)>;

// Installs the function ShortPathOf calls and returns the previous one; an empty function
// restores the default. Meant to be called once at start-up, before any file is read.
ShortPathFunction SetShortPathFunction(ShortPathFunction function);

}  // namespace quilom::settings
