#include "translit/catalogue_screen.hpp"

#include <charconv>

#include "settings/text_file.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::translit {
namespace {

constexpr std::u16string_view kWidth = u"Last ScreenWidth";
constexpr std::u16string_view kHeight = u"Last ScreenHeight";
constexpr std::u16string_view kMaximized = u"Maximized State";
constexpr std::u16string_view kFileToBeLoaded = u"FileToBe Loaded";

std::filesystem::path ScreenPath(const settings::DataFolders& folders) {
  return folders.mainDataFolder / "inps" / "Settings-Lfks-Screen.txt";
}

void ReadNumber(std::u16string_view value, int& target) {
  const std::string digits = text::Utf16ToUtf8(text::Trim(value));
  int number = 0;
  const auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (ec == std::errc() && end == digits.data() + digits.size() && number >= 0) target = number;
}

std::u16string ToText(int number) { return text::Utf8ToUtf16(std::to_string(number)); }

}  // namespace

CatalogueScreen ParseCatalogueScreen(std::u16string_view text) {
  CatalogueScreen screen;
  for (const auto& line : text::Split(text, text::kCrLf)) {
    const size_t at = line.find(kScreenSeparator);
    if (at == std::u16string::npos) continue;
    const auto name = std::u16string_view(line).substr(0, at);
    const auto value = std::u16string_view(line).substr(at + kScreenSeparator.size());
    if (name == kWidth) {
      ReadNumber(value, screen.width);
    } else if (name == kHeight) {
      ReadNumber(value, screen.height);
    } else if (name == kMaximized) {
      const auto flag = text::AsciiLower(text::Trim(value));
      screen.maximized = flag == u"1" || flag == u"-1" || flag == u"true";
    } else if (name == kFileToBeLoaded && !text::Trim(value).empty()) {
      screen.fileToBeLoaded = text::Trim(value);
    }
  }
  return screen;
}

CatalogueScreen ReadCatalogueScreen(const settings::DataFolders& folders) {
  const auto path = ScreenPath(folders);
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) return {};
  return ParseCatalogueScreen(settings::ReadTextFile(path));
}

std::u16string FormatCatalogueScreen(std::u16string_view existing, const CatalogueScreen& screen) {
  const std::pair<std::u16string_view, std::u16string> values[] = {
      {kWidth, ToText(screen.width)},
      {kHeight, ToText(screen.height)},
      {kMaximized, screen.maximized ? u"1" : u"0"},
      {kFileToBeLoaded, screen.fileToBeLoaded},
  };
  std::vector<std::u16string> lines;
  if (!existing.empty()) lines = text::Split(existing, text::kCrLf);
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  for (const auto& [name, value] : values) {
    const std::u16string prefix = std::u16string(name) + std::u16string(kScreenSeparator);
    bool found = false;
    for (auto& line : lines) {
      if (!found && text::StartsWith(line, prefix)) {
        line = prefix + value;
        found = true;
      }
    }
    if (!found) lines.push_back(prefix + value);
  }
  return text::Join(lines, text::kCrLf) + std::u16string(text::kCrLf);
}

bool WriteCatalogueScreen(const settings::DataFolders& folders, const CatalogueScreen& screen) {
  const auto path = ScreenPath(folders);
  std::error_code ec;
  std::u16string existing;
  if (std::filesystem::is_regular_file(path, ec)) existing = settings::ReadTextFile(path);
  std::filesystem::create_directories(path.parent_path(), ec);
  return settings::WriteTextFile(path, FormatCatalogueScreen(existing, screen),
                                 static_cast<int>(settings::TextEncoding::Utf16LeBom));
}

}  // namespace quilom::translit
