#include "settings/settings_lines.hpp"

#include "settings/text_file.hpp"
#include "settings/text_file_checked.hpp"
#include "text/strings.hpp"

namespace quilom::settings {

std::u16string KeyLine(std::u16string_view key) {
  std::u16string line(kKeyPrefix);
  line += key;
  return line;
}

std::vector<std::u16string> ReadSettingsLines(const std::filesystem::path& file, bool& readOk) {
  std::u16string text;
  TextEncoding encoding = TextEncoding::Utf8NoBom;
  readOk = ReadTextFileChecked(file, text, encoding, false, false);
  return text::Split(text, text::kCrLf);
}

bool WriteSettingsLines(const std::filesystem::path& file, const std::vector<std::u16string>& lines) {
  return WriteTextFile(file, text::Join(lines, text::kCrLf), static_cast<int>(TextEncoding::Utf16LeBom));
}

KeyLookup FindKeyLine(const std::vector<std::u16string>& lines, std::u16string_view key, size_t& keyIndex) {
  const std::u16string wanted = KeyLine(key);
  for (size_t i = 1; i < lines.size(); ++i) {
    if (lines[i] != wanted) continue;
    keyIndex = i;
    return i + 1 < lines.size() ? KeyLookup::Found : KeyLookup::NoValueLine;
  }
  return KeyLookup::Missing;
}

}  // namespace quilom::settings
