#pragma once

#include <filesystem>

namespace quilom::settings {

// Asks the system to put a closed file's contents on the disk before it replaces another file,
// so that a power cut right after the replace cannot leave an empty file in its place. Returns
// false when the file could not be opened or flushed.
bool FlushFileToDisk(const std::filesystem::path& file) noexcept;

}  // namespace quilom::settings
