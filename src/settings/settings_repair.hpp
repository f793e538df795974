#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "settings/shipped_settings.hpp"

// Settings files that survive damage. A settings file is read whole and rewritten whole, so a
// file cut short by a crash, a full disk or a bad copy would otherwise lose every key after the
// cut at the next save, for good. Before a window uses its file:
// - a missing or empty file is made again from the shipped defaults;
// - a damaged file (cut short inside a key line or a line break, an odd number of bytes in
//   UTF-16, bytes that are not text in its encoding, or no CR LF line breaks at all) is copied byte for byte to
//   "<name>.damaged-YYYYMMDD-HHMMSS" (UTC) beside it, then rewritten with every key that could
//   still be read, and every other known key at its shipped default;
// and each of these is told once, through the window's load tag, never once per click.
namespace quilom::settings {

enum class SettingsFileHealth { Healthy, Missing, Empty, Damaged, Unreadable };

struct SettingsFileCheck {
  SettingsFileHealth health = SettingsFileHealth::Healthy;
  std::vector<std::u16string> lines;  // Healthy: as read; Damaged: what could be read of it
  std::string bytes;                  // the file as it is on the disk
  std::u16string damage;              // what is wrong, for the user
};

// Reads and judges the file without reporting anything.
SettingsFileCheck CheckSettingsFile(const std::filesystem::path& file);

// Keeps every key line whose key and value were read whole (a value that could not be read
// becomes the known default, or the pair is dropped for an unknown key), puts a title first and
// ends the text with CR LF, then completes the keys (CompleteSettingsLines).
std::vector<std::u16string> RepairedSettingsLines(const std::vector<std::u16string>& readable,
                                                  const SettingsDefaults* defaults);

// Adds every known key the lines lack, with its default, before the trailing empty lines.
void CompleteSettingsLines(std::vector<std::u16string>& lines, const SettingsDefaults& defaults);

// "<file name>.damaged-YYYYMMDD-HHMMSS" beside `file`, at `when` in UTC; "-2", "-3"... follow
// when that name is taken.
std::filesystem::path DamagedCopyPath(const std::filesystem::path& file, std::chrono::system_clock::time_point when);

// The lines a window works with, after making a missing file again or mending a damaged one as
// described above; with `defaults` nullptr, the lines as they stand (ReadSettingsLines). `usable`
// is false when the file could not be read, or is damaged and no copy of it could be made: a
// caller that rewrites the file must then leave it alone.
std::vector<std::u16string> OpenSettingsLines(const std::filesystem::path& file, const SettingsDefaults* defaults,
                                              std::u16string_view loadTag, std::chrono::system_clock::time_point now,
                                              bool& usable);

}  // namespace quilom::settings
