#include "settings/settings_repair.hpp"

#include <cstdio>
#include <optional>
#include <set>
#include <system_error>

#include "settings/error_report.hpp"
#include "settings/file_replacement.hpp"
#include "settings/settings_lines.hpp"
#include "settings/text_codec.hpp"
#include "settings/text_file_checked.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::settings {
namespace {

namespace fs = std::filesystem;

constexpr char16_t kReplacement = 0xFFFD;

bool Unreadable(std::u16string_view line) { return line.find(kReplacement) != std::u16string_view::npos; }

bool IsKeyLine(std::u16string_view line) { return line.starts_with(kKeyPrefix); }

std::optional<std::u16string> DefaultOf(const SettingsDefaults* defaults, std::u16string_view keyLine) {
  if (defaults == nullptr) return std::nullopt;
  for (const auto& [key, value] : defaults->keys) {
    if (KeyLine(key) == keyLine) return std::u16string(value);
  }
  return std::nullopt;
}

// A text that ends inside a key line, or between the CR and the LF of a line break, was cut
// short. One that ends in a value with no line break after it is whole: files written by hand
// or by earlier versions end that way, and half a value cannot be told from a whole one.
bool EndsCutShort(std::u16string_view text) {
  if (text.ends_with(u"\r\n")) return false;
  if (text.ends_with(u'\r')) return true;
  const size_t lastBreak = text.rfind(u"\r\n");
  const std::u16string_view last = lastBreak == std::u16string_view::npos ? text : text.substr(lastBreak + 2);
  return last.starts_with(kKeyPrefix) || (!last.empty() && kKeyPrefix.starts_with(last));
}

// What the text says, and why it is damaged (empty when it is not). `lastLineCut` tells that
// the last line is only part of what it was.
std::u16string Judge(std::string_view bytes, std::u16string& text, bool& lastLineCut) {
  std::u16string damage;
  const bool utf16 = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
  const bool oddLength = utf16 && bytes.size() % 2 != 0;
  if (oddLength) {
    damage = u"it holds an odd number of bytes";
    bytes.remove_suffix(1);
  }
  text = DecodeTextBytes(bytes, false).text;
  if (damage.empty() && Unreadable(text)) damage = u"some of its bytes are not text in its encoding";
  if (text.find(u"\r\n") == std::u16string::npos && text.find_first_of(u"\r\n") != std::u16string::npos) {
    text = NormaliseNewlines(text);
    if (damage.empty()) damage = u"its lines are not separated by CR LF";
  }
  lastLineCut = EndsCutShort(text) || (oddLength && !text.ends_with(u"\r\n"));
  if (lastLineCut && damage.empty()) damage = u"it was cut short";
  return damage;
}

// Each file is mended or made again once a run: if that could not be written, the next click
// must not make another copy or show another notice.
bool FirstTimeFor(const fs::path& file) {
  static std::set<fs::path> handled;
  return handled.insert(file.lexically_normal()).second;
}

void Notify(std::u16string_view tag, const fs::path& file, long number, std::u16string description) {
  ReportError(tag, ErrorDetails{number, file.u16string(), std::move(description)});
}

std::vector<std::u16string> MakeAgain(const fs::path& file, const SettingsDefaults& defaults, bool wasEmpty,
                                      std::u16string_view tag) {
  std::vector<std::u16string> lines = DefaultSettingsLines(defaults);
  if (!FirstTimeFor(file)) return lines;
  if (WriteSettingsLines(file, lines)) {
    Notify(tag, file, wasEmpty ? 0 : 53,
           std::u16string(wasEmpty ? u"The settings file was empty" : u"The settings file was missing") +
               u": it has been made again with the shipped settings.");
  }
  return lines;
}

std::vector<std::u16string> Mend(const fs::path& file, const SettingsFileCheck& check, const SettingsDefaults& defaults,
                                 std::u16string_view tag, std::chrono::system_clock::time_point now, bool& usable) {
  std::vector<std::u16string> lines = RepairedSettingsLines(check.lines, &defaults);
  if (!FirstTimeFor(file)) return lines;
  const fs::path copy = DamagedCopyPath(file, now);
  if (const std::error_code error = ReplaceFileContents(copy, check.bytes)) {
    // Without the copy the damaged file is the only record of what it held: leave it be.
    usable = false;
    Notify(tag, file, error.value(),
           u"The settings file is damaged (" + check.damage + u"), and no copy of it could be made beside it (" +
               text::Utf8ToUtf16(error.message()) + u"). It is left as it is; settings changed now are not saved.");
    return lines;
  }
  WriteSettingsLines(file, lines);
  Notify(tag, file, 0,
         u"The settings file was damaged (" + check.damage +
             u"). Every setting that could still be read was kept, and the others are back to the shipped ones. "
             u"The damaged file was kept as \"" +
             copy.filename().u16string() + u"\".");
  return lines;
}

}  // namespace

SettingsFileCheck CheckSettingsFile(const fs::path& file) {
  SettingsFileCheck check;
  std::error_code ec;
  if (!fs::exists(file, ec)) {
    check.health = ec ? SettingsFileHealth::Unreadable : SettingsFileHealth::Missing;
    return check;
  }
  ErrorDetails details;
  if (!ReadFileBytes(file, check.bytes, details)) {
    check.health = SettingsFileHealth::Unreadable;
    return check;
  }
  if (check.bytes.empty()) {
    check.health = SettingsFileHealth::Empty;
    return check;
  }
  std::u16string text;
  bool lastLineCut = false;
  check.damage = Judge(check.bytes, text, lastLineCut);
  check.lines = text::Split(text, text::kCrLf);
  if (!check.damage.empty()) check.health = SettingsFileHealth::Damaged;
  if (lastLineCut) check.lines.pop_back();
  return check;
}

std::vector<std::u16string> RepairedSettingsLines(const std::vector<std::u16string>& readable,
                                                  const SettingsDefaults* defaults) {
  const bool titled = !readable.empty() && !IsKeyLine(readable[0]) && !Unreadable(readable[0]);
  std::vector<std::u16string> lines{titled                ? readable[0]
                                    : defaults != nullptr ? std::u16string(defaults->title)
                                                          : std::u16string(u"Quilom++ settings")};
  for (size_t i = (readable.empty() || IsKeyLine(readable[0])) ? 0 : 1; i < readable.size(); ++i) {
    const std::u16string& line = readable[i];
    if (!IsKeyLine(line)) {
      if (!Unreadable(line)) lines.push_back(line);
      continue;
    }
    if (i + 1 >= readable.size()) break;
    std::optional<std::u16string> value = readable[++i];
    if (Unreadable(line)) continue;  // a key that cannot be told is no key
    if (Unreadable(*value)) value = DefaultOf(defaults, line);
    if (!value) continue;
    lines.push_back(line);
    lines.push_back(std::move(*value));
  }
  while (lines.size() > 1 && lines.back().empty()) lines.pop_back();
  lines.emplace_back();
  if (defaults != nullptr) CompleteSettingsLines(lines, *defaults);
  return lines;
}

void CompleteSettingsLines(std::vector<std::u16string>& lines, const SettingsDefaults& defaults) {
  if (lines.empty()) lines.emplace_back(defaults.title);
  std::vector<std::u16string> missing;
  for (const auto& [key, value] : defaults.keys) {
    size_t index = 0;
    const KeyLookup lookup = FindKeyLine(lines, key, index);
    if (lookup == KeyLookup::NoValueLine) lines.emplace_back(value);
    if (lookup != KeyLookup::Missing) continue;
    missing.push_back(KeyLine(key));
    missing.emplace_back(value);
  }
  if (missing.empty()) return;
  size_t end = lines.size();
  while (end > 1 && lines[end - 1].empty()) --end;
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(end), missing.begin(), missing.end());
  if (!lines.back().empty()) lines.emplace_back();
}

fs::path DamagedCopyPath(const fs::path& file, std::chrono::system_clock::time_point when) {
  using namespace std::chrono;
  const auto day = floor<days>(when);
  const year_month_day date{day};
  const hh_mm_ss time{floor<seconds>(when - day)};
  char stamp[32];
  std::snprintf(stamp, sizeof stamp, "%04d%02u%02u-%02d%02d%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                static_cast<int>(time.seconds().count()));
  const fs::path base = file.parent_path() / (file.filename().u16string() + u".damaged-" + text::Utf8ToUtf16(stamp));
  fs::path candidate = base;
  std::error_code ec;
  for (int n = 2; fs::exists(candidate, ec); ++n)
    candidate = fs::path(base.u16string() + u"-" + text::Utf8ToUtf16(std::to_string(n)));
  return candidate;
}

std::vector<std::u16string> OpenSettingsLines(const fs::path& file, const SettingsDefaults* defaults,
                                              std::u16string_view loadTag, std::chrono::system_clock::time_point now,
                                              bool& usable) {
  usable = true;
  if (defaults == nullptr) return ReadSettingsLines(file, usable);
  SettingsFileCheck check = CheckSettingsFile(file);
  switch (check.health) {
    case SettingsFileHealth::Healthy:
      return std::move(check.lines);
    case SettingsFileHealth::Missing:
    case SettingsFileHealth::Empty:
      return MakeAgain(file, *defaults, check.health == SettingsFileHealth::Empty, loadTag);
    case SettingsFileHealth::Damaged:
      return Mend(file, check, *defaults, loadTag, now, usable);
    case SettingsFileHealth::Unreadable:
      break;
  }
  return ReadSettingsLines(file, usable);
}

}  // namespace quilom::settings
