#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "settings/data_folders.hpp"

// The ".ini" files of the typing settings: lines "key=value" split at the first "=", grouped
// under "[Section]" lines. Lines before the first section belong to the section named "" (files
// without sections use that one). Section names and keys are compared exactly and
// case-sensitively; blanks around a key, a value or a section name are ignored on reading, so a
// hand-edited "Classic = 1" still counts. A line that is neither a section nor holds "=" is kept
// as it stands and otherwise ignored.
namespace quilom::settings {

// The value of the first `key` in the first `section` of that name, trimmed; nullopt when absent.
std::optional<std::u16string> FindIniValue(std::u16string_view text, std::u16string_view section,
                                           std::u16string_view key);

// The text with `key` set to `value`, every other line kept as it was, CR LF between lines. An
// existing key keeps its place; a new key goes after the last non-blank line of its section; a
// new section goes at the end, after a blank line.
std::u16string SetIniValue(std::u16string_view text, std::u16string_view section, std::u16string_view key,
                           std::u16string_view value);

// One ini file of the shared data folder ("pelandr\inis\<name>"). The program also looks for a
// copy beside the executable ("<program folder>\inis\<name>"), as older installations kept it.
// The copy in the data folder wins whenever it exists: it is the one the program writes, so it
// holds the user's latest choices. Reading falls back to the copy beside the executable only
// when the data folder has none; the first save then starts from that copy's lines, so nothing
// of it is lost, and writes the result into the data folder.
class IniSettings {
 public:
  IniSettings(const DataFolders& folders, std::u16string_view fileName);

  // A missing file or key gives `fallback` without any report; an unreadable existing file
  // reports "RFF" and also gives `fallback`.
  std::u16string Read(std::u16string_view section, std::u16string_view key, std::u16string_view fallback) const;

  // "1" counts as ticked, anything else as unticked.
  bool ReadTicked(std::u16string_view section, std::u16string_view key, bool fallback) const;

  // Saves as UTF-16LE with mark, creating the file (and its folder) when needed. An existing
  // file that cannot be read is left alone. Reports "WT-File" when the write fails.
  bool Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) const;

  const std::filesystem::path& DataCopy() const { return dataCopy_; }
  const std::filesystem::path& ProgramCopy() const { return programCopy_; }

 private:
  std::filesystem::path SourceForReading() const;

  std::filesystem::path dataCopy_;
  std::filesystem::path programCopy_;
};

// The ini files and the key list named by the typing settings windows.
inline constexpr std::u16string_view kTypingSettingsIni = u"qm-settings.ini";
inline constexpr std::u16string_view kTypingSettings2Ini = u"qm-settings-2.ini";
inline constexpr std::u16string_view kTypingSettings2Replica = u"qm-settings-2.replica";
inline constexpr std::u16string_view kTypingSetKeys = u"qm-setkeys.txt";

}  // namespace quilom::settings
