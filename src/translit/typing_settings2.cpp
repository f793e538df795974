#include "translit/typing_settings2.hpp"

#include <filesystem>

#include "settings/error_report.hpp"
#include "settings/ini_file.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"

namespace quilom::translit {
namespace {

settings::IniSettings Settings2Ini(const settings::DataFolders& folders) {
  return settings::IniSettings(folders, settings::kTypingSettings2Ini);
}

// The data folder's copy when it exists, else the one beside the executable.
std::filesystem::path ExistingCopy(const settings::DataFolders& folders, std::u16string_view name) {
  const settings::IniSettings file(folders, name);
  std::error_code ec;
  return std::filesystem::exists(file.DataCopy(), ec) ? file.DataCopy() : file.ProgramCopy();
}

}  // namespace

std::u16string SetKeyRow::DisplayText() const { return separator ? name : name + u" = " + value; }

std::vector<SetKeyRow> ParseSetKeys(std::u16string_view text) {
  std::vector<SetKeyRow> rows;
  for (const auto& line : text::Split(text, text::kCrLf)) {
    if (text::Trim(line).empty()) continue;
    SetKeyRow row;
    if (line.find(kSetKeysSeparator) != std::u16string::npos) {
      row.separator = true;
      row.name = line;
    } else {
      const size_t equals = line.find(u'=');
      row.name = text::Trim(std::u16string_view(line).substr(0, equals));
      if (equals != std::u16string::npos) row.value = text::Trim(std::u16string_view(line).substr(equals + 1));
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<SetKeyRow> ReadSetKeys(const settings::DataFolders& folders) {
  const auto path = ExistingCopy(folders, settings::kTypingSetKeys);
  std::error_code ec;
  if (!std::filesystem::exists(path, ec)) return {};
  return ParseSetKeys(settings::ReadTextFile(path));
}

bool ReadSettings2Tick(const settings::DataFolders& folders, std::u16string_view name, bool fallback) {
  return Settings2Ini(folders).ReadTicked(u"", name, fallback);
}

bool RowTicked(const settings::DataFolders& folders, const SetKeyRow& row) {
  if (row.separator) return false;
  return ReadSettings2Tick(folders, row.name, row.value == u"1");
}

std::u16string ClickSetKeyRow(const settings::DataFolders& folders, const SetKeyRow& row, bool ticked) {
  if (row.separator) return {};
  const auto ini = Settings2Ini(folders);
  ini.Write(u"", row.name, ticked ? u"1" : u"0");
  if (row.name == kClassicScheme) ini.Write(u"", kExtendedScheme, ticked ? u"0" : u"1");
  if (row.name == kExtendedScheme) ini.Write(u"", kClassicScheme, ticked ? u"0" : u"1");
  return !ticked && row.Recommended() ? std::u16string(kRecommendedOptionWarning) : std::u16string();
}

bool RestoreSettings2Defaults(const settings::DataFolders& folders) {
  const auto replica = ExistingCopy(folders, settings::kTypingSettings2Replica);
  std::error_code ec;
  const std::u16string text = std::filesystem::exists(replica, ec) ? settings::ReadTextFile(replica) : u"";
  if (text.empty()) {
    ReportError(u"qmset2 - RsD",
                {53, u"qmset2", u"The factory copy of the settings is missing: " + replica.filename().u16string()});
    return false;
  }
  const auto target = Settings2Ini(folders).DataCopy();
  std::filesystem::create_directories(target.parent_path(), ec);
  return settings::WriteTextFile(target, text, static_cast<int>(settings::TextEncoding::Utf16LeBom));
}

}  // namespace quilom::translit
