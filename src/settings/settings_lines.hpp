#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// The line syntax shared by "Settings.txt" and its companions: a key line is the key prefix
// followed at once by the key, and the key's value is the whole next line. Line 0 is a title
// and never a key line for the by-key routines.
namespace quilom::settings {

// Five grave accents, nothing between them.
inline constexpr std::u16string_view kKeyPrefix = u"`````";

std::u16string KeyLine(std::u16string_view key);

// The file's text split at CR LF (a missing file reads as one empty line, after the "RFF"
// report). `readOk` tells whether the file was read; rewriting callers stop when it is false.
std::vector<std::u16string> ReadSettingsLines(const std::filesystem::path& file, bool& readOk);

// Joins with CR LF and writes UTF-16LE with mark, as every settings save does.
bool WriteSettingsLines(const std::filesystem::path& file, const std::vector<std::u16string>& lines);

enum class KeyLookup {
  Found,        // the key line and its value line are there
  Missing,      // no line from index 1 on equals the key line
  NoValueLine,  // the first key line is the file's last line
};

// The index of the first line from index 1 that equals the key line exactly (no trimming,
// case-sensitive); `keyIndex` is set for Found and NoValueLine.
KeyLookup FindKeyLine(const std::vector<std::u16string>& lines, std::u16string_view key, size_t& keyIndex);

}  // namespace quilom::settings
