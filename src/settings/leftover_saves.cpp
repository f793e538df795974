#include "settings/leftover_saves.hpp"

#include <system_error>

#include "settings/file_replacement.hpp"

namespace quilom::settings {

int RemoveLeftoverSaves(const DataFolders& folders) noexcept {
  namespace fs = std::filesystem;
  int removed = RemoveLeftoverTemporaries(folders.dataRoot);
  std::error_code ec;
  for (fs::directory_iterator entry(folders.dataRoot, ec), end; !ec && entry != end; entry.increment(ec)) {
    if (entry->is_directory(ec)) removed += RemoveLeftoverTemporaries(entry->path());
  }
  removed += RemoveLeftoverTemporaries(folders.sharedDataFolder / "inis");
  return removed;
}

}  // namespace quilom::settings
