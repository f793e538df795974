#pragma once

#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>

// The one way a file is written: the settings store's saves and every output of the `quilom`
// command. The new contents go to a temporary file beside the target, with a name no other
// writer shares, and replace the target only when they are complete and on the disk, so the
// target holds either its old or its new contents whatever happens in between.
//
//   - A symbolic link is written through: its target gets the new contents, the link stays.
//   - A target the user made read-only is refused ("Permission denied"), since a rename would
//     go around the mark; an existing target keeps its permissions.
//   - The temporary is flushed to the disk before the rename, and the folder after it, so a
//     power cut cannot leave an empty file behind.
//   - A writer that is not committed removes its temporary; so does RemovePendingTemporary,
//     which a signal handler may call (it only unlinks one remembered path).
namespace quilom::settings {

class FileReplacement {
 public:
  FileReplacement() = default;
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;
  ~FileReplacement();

  // Starts the replacement of `target`; false with `error` set when it cannot be written.
  bool Open(const std::filesystem::path& target, std::error_code& error);
  bool Write(std::string_view bytes, std::error_code& error);
  // Puts the new contents in place; false with `error` set, the target untouched, otherwise.
  bool Commit(std::error_code& error);
  // Drops the new contents; the target stays as it was.
  void Discard() noexcept;

 private:
  std::filesystem::path target_;
  std::filesystem::path temporary_;
  std::FILE* file_ = nullptr;
};

// Replaces `target`'s contents with `bytes` in one go (see FileReplacement).
std::error_code ReplaceFileContents(const std::filesystem::path& target, std::string_view bytes);

// Unlinks the temporary file of the replacement in progress, if any. Safe to call from a signal
// handler.
void RemovePendingTemporary() noexcept;

// Removes temporaries that interrupted saves left in `folder` (their names end in ".saving");
// returns how many. For a program's start, when no save of its own is under way.
int RemoveLeftoverTemporaries(const std::filesystem::path& folder) noexcept;

}  // namespace quilom::settings
