#include "settings/file_replacement.hpp"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <random>
#include <string>

#include "settings/disk_flush.hpp"

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace quilom::settings {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view kTemporarySuffix = ".saving";

// The temporary being written, as a plain byte string a signal handler can unlink.
char gPendingPath[4096];
std::atomic<bool> gPending{false};

void RememberPending(const fs::path& temporary) {
  try {
    const std::string native = temporary.string();
    if (native.size() >= sizeof gPendingPath) return;
    std::memcpy(gPendingPath, native.c_str(), native.size() + 1);
    gPending.store(true);
  } catch (...) {
    // A name the narrow form cannot spell is only left to the writer's own clean-up.
  }
}

void ForgetPending() { gPending.store(false); }

std::error_code LastError() { return {errno != 0 ? errno : EIO, std::generic_category()}; }

fs::path TemporaryPathBeside(const fs::path& target) {
  std::random_device random;
  const std::string suffix = "." + std::to_string(random()) + std::to_string(random()) + std::string(kTemporarySuffix);
  return target.parent_path() / (target.filename().native() + fs::path(suffix).native());
}

bool IsReadOnly(const fs::path& target) {
  std::error_code ec;
  const fs::file_status status = fs::status(target, ec);
  if (ec || !fs::exists(status)) return false;
  return (status.permissions() & fs::perms::owner_write) == fs::perms::none;
}

// The file a write to `path` must reach: a link's final target (which may not exist yet).
fs::path WrittenFile(const fs::path& path, std::error_code& error) {
  std::error_code ec;
  if (!fs::is_symlink(fs::symlink_status(path, ec))) return path;
  return fs::weakly_canonical(path, error);
}

std::FILE* OpenNew(const fs::path& file) {
#if defined(_WIN32)
  return _wfopen(file.c_str(), L"wb");  // the C runtime knows no exclusive mode; the name is random
#else
  return std::fopen(file.c_str(), "wbx");
#endif
}

}  // namespace

FileReplacement::~FileReplacement() { Discard(); }

bool FileReplacement::Open(const fs::path& target, std::error_code& error) {
  Discard();
  error.clear();
  target_ = WrittenFile(target, error);
  if (error) return false;
  std::error_code ec;
  if (fs::is_directory(target_, ec)) {
    error = std::make_error_code(std::errc::is_a_directory);
    return false;
  }
  if (IsReadOnly(target_)) {
    error = std::make_error_code(std::errc::permission_denied);
    return false;
  }
  temporary_ = TemporaryPathBeside(target_);
  RememberPending(temporary_);
  errno = 0;
  file_ = OpenNew(temporary_);
  if (!file_) {
    error = LastError();
    ForgetPending();
    return false;
  }
  return true;
}

bool FileReplacement::Write(std::string_view bytes, std::error_code& error) {
  errno = 0;
  if (file_ && std::fwrite(bytes.data(), 1, bytes.size(), file_) == bytes.size()) return true;
  error = LastError();
  return false;
}

bool FileReplacement::Commit(std::error_code& error) {
  if (!file_) {
    error = std::make_error_code(std::errc::bad_file_descriptor);
    return false;
  }
  errno = 0;
  const bool closed = std::fclose(file_) == 0;
  file_ = nullptr;
  if (!closed) {
    error = LastError();
    Discard();
    return false;
  }
  std::error_code ec;
  if (fs::exists(target_, ec)) fs::permissions(temporary_, fs::status(target_, ec).permissions(), ec);
  FlushFileToDisk(temporary_);
  fs::rename(temporary_, target_, error);
  if (error) {
    Discard();
    return false;
  }
  ForgetPending();
  temporary_.clear();
  FlushFolderToDisk(target_.parent_path().empty() ? fs::path(".") : target_.parent_path());
  return true;
}

void FileReplacement::Discard() noexcept {
  if (file_) {
    std::fclose(file_);
    file_ = nullptr;
  }
  if (!temporary_.empty()) {
    std::error_code ignored;
    fs::remove(temporary_, ignored);
    temporary_.clear();
    ForgetPending();
  }
}

std::error_code ReplaceFileContents(const fs::path& target, std::string_view bytes) {
  FileReplacement replacement;
  std::error_code error;
  if (replacement.Open(target, error) && replacement.Write(bytes, error)) replacement.Commit(error);
  return error;
}

void RemovePendingTemporary() noexcept {
  if (!gPending.exchange(false)) return;
#if defined(_WIN32)
  _unlink(gPendingPath);
#else
  ::unlink(gPendingPath);
#endif
}

int RemoveLeftoverTemporaries(const fs::path& folder) noexcept {
  int removed = 0;
  std::error_code ec;
  for (fs::directory_iterator entry(folder, ec), end; !ec && entry != end; entry.increment(ec)) {
    const fs::path& path = entry->path();
    if (!path.filename().string().ends_with(kTemporarySuffix) || !entry->is_regular_file(ec)) continue;
    std::error_code removal;
    removed += fs::remove(path, removal) ? 1 : 0;
  }
  return removed;
}

}  // namespace quilom::settings
