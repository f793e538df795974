#include "settings/ini_file.hpp"

#include <system_error>
#include <vector>

#include "settings/text_file.hpp"
#include "settings/text_file_checked.hpp"
#include "text/strings.hpp"

namespace quilom::settings {
namespace {

namespace fs = std::filesystem;

constexpr size_t kNone = static_cast<size_t>(-1);

std::vector<std::u16string> LinesOf(std::u16string_view text) {
  if (text.empty()) return {};
  return text::Split(text, text::kCrLf);
}

// The section name when `line` is a "[Name]" line.
std::optional<std::u16string> SectionOf(std::u16string_view line) {
  const std::u16string trimmed = text::Trim(line);
  if (trimmed.size() < 2 || trimmed.front() != u'[' || trimmed.back() != u']') return std::nullopt;
  return text::Trim(std::u16string_view(trimmed).substr(1, trimmed.size() - 2));
}

bool IsKeyLine(std::u16string_view line, std::u16string_view key) {
  const size_t equals = line.find(u'=');
  return equals != std::u16string_view::npos && text::Trim(line.substr(0, equals)) == key;
}

// Where a key stands in the lines, and where a new one would go.
struct IniPlace {
  size_t keyLine = kNone;          // the first line of the key in the section
  size_t lastContentLine = kNone;  // the last non-blank line of the section's first block
  bool sectionSeen = false;
};

IniPlace Locate(const std::vector<std::u16string>& lines, std::u16string_view section, std::u16string_view key) {
  IniPlace place;
  // Lines before the first "[...]" line form the section "".
  bool inSection = section.empty();
  int blocksSeen = inSection ? 1 : 0;
  bool inFirstBlock = inSection;
  place.sectionSeen = inSection;
  for (size_t i = 0; i < lines.size(); ++i) {
    if (const auto name = SectionOf(lines[i])) {
      inSection = *name == section;
      if (inSection) ++blocksSeen;
      inFirstBlock = inSection && blocksSeen == 1;
      if (inFirstBlock) place.lastContentLine = i;
      place.sectionSeen = place.sectionSeen || inSection;
      continue;
    }
    if (!inSection) continue;
    if (inFirstBlock && !text::Trim(lines[i]).empty()) place.lastContentLine = i;
    if (place.keyLine == kNone && IsKeyLine(lines[i], key)) place.keyLine = i;
  }
  return place;
}

std::u16string KeyValueLine(std::u16string_view key, std::u16string_view value) {
  return std::u16string(key) + u"=" + std::u16string(value);
}

void AppendSection(std::vector<std::u16string>& lines, std::u16string_view section, std::u16string line) {
  // Keep a final CR LF final: new lines go before the empty piece it leaves.
  const bool endsWithNewline = !lines.empty() && lines.back().empty();
  if (endsWithNewline) lines.pop_back();
  if (!lines.empty() && !text::Trim(lines.back()).empty()) lines.emplace_back();
  lines.push_back(u"[" + std::u16string(section) + u"]");
  lines.push_back(std::move(line));
  if (endsWithNewline) lines.emplace_back();
}

}  // namespace

std::optional<std::u16string> FindIniValue(std::u16string_view text, std::u16string_view section,
                                           std::u16string_view key) {
  const auto lines = LinesOf(text);
  const IniPlace place = Locate(lines, section, key);
  if (place.keyLine == kNone) return std::nullopt;
  const std::u16string& line = lines[place.keyLine];
  return text::Trim(std::u16string_view(line).substr(line.find(u'=') + 1));
}

std::u16string SetIniValue(std::u16string_view text, std::u16string_view section, std::u16string_view key,
                           std::u16string_view value) {
  auto lines = LinesOf(text);
  const IniPlace place = Locate(lines, section, key);
  if (place.keyLine != kNone) {
    std::u16string& line = lines[place.keyLine];
    line = line.substr(0, line.find(u'=') + 1) + std::u16string(value);
  } else if (place.sectionSeen && place.lastContentLine != kNone) {
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place.lastContentLine + 1), KeyValueLine(key, value));
  } else if (section.empty()) {
    lines.insert(lines.begin(), KeyValueLine(key, value));
  } else {
    AppendSection(lines, section, KeyValueLine(key, value));
  }
  return text::Join(lines, text::kCrLf);
}

IniSettings::IniSettings(const DataFolders& folders, std::u16string_view fileName)
    : dataCopy_(folders.sharedDataFolder / "inis" / fs::path(std::u16string(fileName))),
      programCopy_(folders.programFolder / "inis" / fs::path(std::u16string(fileName))) {}

fs::path IniSettings::SourceForReading() const {
  std::error_code ec;
  if (fs::exists(dataCopy_, ec)) return dataCopy_;
  if (fs::exists(programCopy_, ec)) return programCopy_;
  return {};
}

std::u16string IniSettings::Read(std::u16string_view section, std::u16string_view key,
                                 std::u16string_view fallback) const {
  try {
    const fs::path source = SourceForReading();
    if (source.empty()) return std::u16string(fallback);
    std::u16string content;
    TextEncoding encoding = TextEncoding::Utf8NoBom;
    if (!ReadTextFileChecked(source, content, encoding, false, true)) return std::u16string(fallback);
    return FindIniValue(content, section, key).value_or(std::u16string(fallback));
  } catch (...) {
    return std::u16string(fallback);
  }
}

bool IniSettings::ReadTicked(std::u16string_view section, std::u16string_view key, bool fallback) const {
  return Read(section, key, fallback ? u"1" : u"0") == u"1";
}

bool IniSettings::Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) const {
  try {
    std::u16string content;
    const fs::path source = SourceForReading();
    TextEncoding encoding = TextEncoding::Utf8NoBom;
    if (!source.empty() && !ReadTextFileChecked(source, content, encoding, false, true)) return false;
    std::error_code ec;
    fs::create_directories(dataCopy_.parent_path(), ec);
    return WriteTextFile(dataCopy_, SetIniValue(content, section, key, value),
                         static_cast<int>(TextEncoding::Utf16LeBom));
  } catch (...) {
    return false;
  }
}

}  // namespace quilom::settings
