#include "settings/settings_list.hpp"

#include "settings/error_report.hpp"
#include "settings/settings_lines.hpp"
#include "text/strings.hpp"

namespace quilom::settings {

std::u16string SettingsListOf(std::u16string_view text, bool wantKeys) {
  const size_t start = text.find(kKeyPrefix);
  if (start == std::u16string_view::npos) return {};
  const auto lines = text::Split(text.substr(start), text::kCrLf);
  std::u16string list;
  for (size_t i = 0; i < lines.size(); ++i) {
    if (!text::StartsWith(lines[i], kKeyPrefix)) continue;
    if (wantKeys) {
      list += lines[i];
    } else if (i + 1 < lines.size()) {
      list += lines[i + 1];
    } else {
      continue;
    }
    list += text::kCrLf;
  }
  return list;
}

void ReadSettingsList(const std::filesystem::path& file, std::u16string& list, bool wantKeys) {
  list.clear();
  try {
    bool readOk = false;
    const auto lines = ReadSettingsLines(file, readOk);
    list = SettingsListOf(text::Join(lines, text::kCrLf), wantKeys);
  } catch (...) {
    list.clear();
  }
}

std::vector<std::u16string> ReadSettingsListEntries(const std::filesystem::path& file, bool wantKeys) {
  std::u16string list;
  ReadSettingsList(file, list, wantKeys);
  if (list.empty()) return {};
  auto entries = text::Split(list, text::kCrLf);
  entries.pop_back();  // the piece after the final CR LF
  return entries;
}

void PutSettingsValues(std::vector<std::u16string>& lines, const std::vector<std::u16string>& values) {
  size_t next = 0;
  for (size_t i = 0; i < lines.size() && next < values.size(); ++i) {
    if (!text::StartsWith(lines[i], kKeyPrefix)) continue;
    if (i + 1 >= lines.size()) break;
    lines[i + 1] = values[next++];
  }
}

bool WriteSettingsValues(const std::filesystem::path& file, const std::vector<std::u16string>& values) {
  try {
    bool readOk = false;
    auto lines = ReadSettingsLines(file, readOk);
    if (!readOk) return false;
    PutSettingsValues(lines, values);
    return WriteSettingsLines(file, lines);
  } catch (...) {
    return false;
  }
}

}  // namespace quilom::settings
