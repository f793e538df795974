#include "translit/catalogue_lists.hpp"

#include <algorithm>

#include "settings/text_file.hpp"
#include "settings/text_file_checked.hpp"
#include "text/strings.hpp"
#include "translit/keymap_resolution.hpp"

namespace quilom::translit {
namespace {

constexpr std::u16string_view kKeymapPrefix = u"QuilomPlus-";

std::filesystem::path InpsFolder(const settings::DataFolders& folders) { return folders.mainDataFolder / "inps"; }

bool IsFile(const std::filesystem::path& path) {
  std::error_code ec;
  return std::filesystem::is_regular_file(path, ec);
}

// The encoding of the "Original" list, which every list written follows.
int ListEncoding(const settings::DataFolders& folders) {
  const auto original = LfkListPath(folders, kOriginalList);
  auto encoding = settings::TextEncoding::Utf16LeBom;
  if (IsFile(original)) {
    std::u16string text;
    settings::ReadTextFileChecked(original, text, encoding, true, false);
  }
  return static_cast<int>(encoding);
}

}  // namespace

std::u16string LfkRow::Name() const { return language + u"-" + encoding + u"-" + layout; }

std::u16string ChoiceListName(int n) {
  if (n < 1 || n > kChoiceLists) return {};
  return u"Choices-" + std::u16string(1, static_cast<char16_t>(u'0' + n));
}

std::vector<std::u16string> MoveToEntries() { return text::Split(kMoveToEntries, u"|"); }

LfkRow LfkRowOfName(std::u16string_view name) {
  LfkName parts = SplitLfkName(name);
  return LfkRow{std::move(parts.language), std::move(parts.encoding), std::move(parts.layout), {}};
}

std::optional<LfkRow> ParseLfkLine(std::u16string_view line) {
  const auto trimmed = text::Trim(line);
  if (trimmed.empty()) return std::nullopt;
  const size_t blank = trimmed.find(u' ');
  LfkRow row = LfkRowOfName(std::u16string_view(trimmed).substr(0, blank));
  if (blank != std::u16string::npos) row.fourth = text::Trim(std::u16string_view(trimmed).substr(blank + 1));
  return row;
}

std::vector<LfkRow> ParseLfkList(std::u16string_view text) {
  std::vector<LfkRow> rows;
  for (const auto& line : text::Split(text, text::kCrLf)) {
    if (auto row = ParseLfkLine(line)) rows.push_back(std::move(*row));
  }
  return rows;
}

std::u16string FormatLfkList(const std::vector<LfkRow>& rows) {
  std::u16string text;
  for (const auto& row : rows) {
    text += row.Name();
    if (!row.fourth.empty()) text += u" " + row.fourth;
    text += text::kCrLf;
  }
  return text;
}

std::filesystem::path LfkListPath(const settings::DataFolders& folders, std::u16string_view listName) {
  return InpsFolder(folders) / (u"Settings-Lfks-" + std::u16string(listName) + u".txt");
}

std::optional<std::vector<LfkRow>> LoadLfkList(const settings::DataFolders& folders, std::u16string_view listName) {
  if (listName.empty()) return std::nullopt;
  const auto path = LfkListPath(folders, listName);
  if (!IsFile(path)) return std::nullopt;
  std::u16string text;
  auto encoding = settings::TextEncoding::Utf16LeBom;
  if (!settings::ReadTextFileChecked(path, text, encoding, true, false)) return std::nullopt;
  return ParseLfkList(text);
}

bool SaveLfkList(const settings::DataFolders& folders, std::u16string_view listName, const std::vector<LfkRow>& rows) {
  if (listName.empty()) return false;
  std::error_code ec;
  std::filesystem::create_directories(InpsFolder(folders), ec);
  return settings::WriteTextFile(LfkListPath(folders, listName), FormatLfkList(rows), ListEncoding(folders));
}

int MoveRow(std::vector<LfkRow>& rows, int from, int delta) {
  const int count = static_cast<int>(rows.size());
  if (from < 0 || from >= count) return from;
  const int to = std::clamp(from + delta, 0, count - 1);
  if (to > from) {
    std::rotate(rows.begin() + from, rows.begin() + from + 1, rows.begin() + to + 1);
  } else if (to < from) {
    std::rotate(rows.begin() + to, rows.begin() + from, rows.begin() + from + 1);
  }
  return to;
}

std::vector<std::u16string> LoadLanguageNames(const settings::DataFolders& folders) {
  const auto path = InpsFolder(folders) / "LangNames.txt";
  std::vector<std::u16string> names;
  if (!IsFile(path)) return names;
  for (const auto& line : text::Split(settings::ReadTextFile(path), text::kCrLf)) {
    auto name = text::Trim(line);
    if (!name.empty()) names.push_back(std::move(name));
  }
  return names;
}

std::vector<LfkRow> InstalledLfks(const std::filesystem::path& keymapFolder) {
  std::vector<std::u16string> files;
  std::error_code ec;
  for (std::filesystem::directory_iterator it(keymapFolder, ec), end; !ec && it != end; it.increment(ec)) {
    if (!it->is_regular_file(ec)) continue;
    std::u16string file = it->path().filename().u16string();
    const std::u16string lower = text::AsciiLower(file);
    const bool txt = text::EndsWith(lower, u".txt");
    if (!txt && !text::EndsWith(lower, u".xml")) continue;
    if (txt && file.find(u"-Tamil-") == kKeymapPrefix.size() - 1) continue;
    files.push_back(std::move(file));
  }
  std::sort(files.begin(), files.end());
  std::vector<LfkRow> rows;
  for (const auto& file : files) {
    std::u16string_view name(file);
    name.remove_suffix(4);
    if (text::StartsWith(name, kKeymapPrefix)) name.remove_prefix(kKeymapPrefix.size());
    LfkRow row = LfkRowOfName(name);
    if (!row.layout.empty() && !row.encoding.empty()) rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace quilom::translit
