#pragma once

#include <filesystem>

namespace quilom::settings {

// Asks the system to put a closed file's contents on the disk before it replaces another file,
// so that a power cut right after the replace cannot leave an empty file in its place. Returns
// false when the file could not be opened or flushed.
bool FlushFileToDisk(const std::filesystem::path& file) noexcept;

// After a file was renamed into `folder`: asks the system to put the folder's entry on the disk
// too. Where the system has no such call (Windows commits the rename itself), returns true.
bool FlushFolderToDisk(const std::filesystem::path& folder) noexcept;

}  // namespace quilom::settings
