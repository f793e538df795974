#include "settings/disk_flush.hpp"

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace quilom::settings {

bool FlushFileToDisk(const std::filesystem::path& file) noexcept {
#if defined(_WIN32)
  const int fd = _wopen(file.c_str(), _O_WRONLY | _O_BINARY);
  if (fd < 0) return false;
  const bool flushed = _commit(fd) == 0;
  _close(fd);
#else
  const int fd = ::open(file.c_str(), O_RDONLY);
  if (fd < 0) return false;
  const bool flushed = ::fsync(fd) == 0;
  ::close(fd);
#endif
  return flushed;
}

bool FlushFolderToDisk(const std::filesystem::path& folder) noexcept {
#if defined(_WIN32)
  (void)folder;
  return true;
#else
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (fd < 0) return false;
  const bool flushed = ::fsync(fd) == 0;
  ::close(fd);
  return flushed;
#endif
}

}  // namespace quilom::settings
