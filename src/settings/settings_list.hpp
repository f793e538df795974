#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// Positional access to a settings file ("Settings - General.txt", "Settings - Floater.txt"):
// the order of the key lines is the meaning, the key texts are labels only. Both routines go on
// silently past what they cannot use; only an unreadable or unwritable file is reported ("RFF",
// "WT-File").
namespace quilom::settings {

// Every key line (with its prefix) when `wantKeys`, else every value line, untrimmed, in file
// order, each followed by CR LF. The text is first cut to begin at the first key prefix, so a
// key line may stand on the first line here. A last key line without a value line is skipped; a
// file with no key line gives "".
void ReadSettingsList(const std::filesystem::path& file, std::u16string& list, bool wantKeys);

// The same list split into its entries (no empty entry at the end).
std::vector<std::u16string> ReadSettingsListEntries(const std::filesystem::path& file, bool wantKeys);

// The in-memory half of ReadSettingsList, for parsers that already hold the text.
std::u16string SettingsListOf(std::u16string_view text, bool wantKeys);

// Writes values[0], values[1], ... over the value lines of the key lines, in file order, from
// line 0 on, and rewrites the file as UTF-16LE with mark. Fewer values than key lines leave the
// rest unchanged; surplus values are dropped. A file that could not be read is left alone.
// Returns whether the file was written.
bool WriteSettingsValues(const std::filesystem::path& file, const std::vector<std::u16string>& values);

// The in-memory half of WriteSettingsValues: the lines with the values put in.
void PutSettingsValues(std::vector<std::u16string>& lines, const std::vector<std::u16string>& values);

}  // namespace quilom::settings
