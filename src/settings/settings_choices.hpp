#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// "Settings-Choices.txt": after a key line come the choices offered for that key, one a line,
// ended by the first line that is blank after trimming (or by the end of the file).
namespace quilom::settings {

// The choices of `key` joined with "|", each trimmed; "" when the key is not there. Lines are
// compared trimmed, from line 1 on, exactly and case-sensitively. A missing file reports "RFF".
std::u16string ReadSettingsChoices(const std::filesystem::path& choicesFile, std::u16string_view key);

// The in-memory half, for parsers that already hold the text.
std::u16string SettingsChoicesOf(std::u16string_view text, std::u16string_view key);

}  // namespace quilom::settings
