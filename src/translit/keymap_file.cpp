#include "translit/keymap_file.hpp"

#include <algorithm>
#include <numeric>
#include <system_error>

#include "settings/error_report.hpp"
#include "settings/text_file.hpp"
#include "settings/text_file_checked.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::translit {
namespace {

constexpr std::u16string_view kOpen = u"<om>";
constexpr std::u16string_view kClose = u"</om>";
constexpr std::u16string_view kJoiningOpen = u"<joining>";
constexpr std::u16string_view kJoiningClose = u"</joining>";
constexpr std::u16string_view kLineFeedMark = u"|`~`|";
constexpr int kMaxEntries = 32767;

std::optional<unsigned> ParseHex(std::u16string_view digits) {
  if (digits.empty() || digits.size() > 4) return std::nullopt;
  unsigned value = 0;
  for (char16_t ch : digits) {
    value <<= 4;
    if (ch >= u'0' && ch <= u'9')
      value |= ch - u'0';
    else if (ch >= u'A' && ch <= u'F')
      value |= ch - u'A' + 10;
    else if (ch >= u'a' && ch <= u'f')
      value |= ch - u'a' + 10;
    else
      return std::nullopt;
  }
  return value;
}

bool ParseRange(std::u16string_view field, char16_t& low, char16_t& high) {
  const auto dash = field.find(u'-');
  if (dash == std::u16string_view::npos) return false;
  const auto lo = ParseHex(field.substr(0, dash));
  const auto hi = ParseHex(field.substr(dash + 1));
  if (!lo || !hi || *lo > *hi) return false;
  low = static_cast<char16_t>(*lo);
  high = static_cast<char16_t>(*hi);
  return true;
}

bool ParseJoiningText(std::u16string_view field, std::u16string& out) {
  out.clear();
  if (field == u"-") return true;
  for (const auto& piece : text::Split(field, u"+")) {
    const auto code = ParseHex(piece);
    if (!code) return false;
    out += static_cast<char16_t>(*code);
  }
  return true;
}

bool ParseJoiningLine(std::u16string_view body, LanguageJoining& joining) {
  const auto fields = text::Split(body, u" ");
  if (fields.size() != 4 || (fields[0] != u"0" && fields[0] != u"1")) return false;
  joining.joiningSwitch = fields[0] == u"1";
  return ParseJoiningText(fields[1], joining.joiningText) &&
         ParseRange(fields[2], joining.firstRangeLow, joining.firstRangeHigh) &&
         ParseRange(fields[3], joining.secondRangeLow, joining.secondRangeHigh);
}

std::u16string WideCopy(std::u16string_view output, const settings::CodePage& codePage) {
  std::u16string wide(output);
  for (auto& ch : wide) {
    if (ch < 256) ch = codePage.ToUnicode(static_cast<unsigned char>(ch));
  }
  return wide;
}

// Reorders keys and outputs together; raw keys and wide outputs keep the file order.
void SortEntries(PhoneticKeymap& map) {
  const size_t n = map.phoneticKeys.size();
  std::vector<size_t> order(n - 1);
  std::iota(order.begin(), order.end(), size_t{1});
  std::stable_sort(order.begin(), order.end(),
                   [&](size_t a, size_t b) { return map.phoneticKeys[a] < map.phoneticKeys[b]; });
  std::vector<std::u16string> keys{u" "}, outputs{u" "};
  keys.reserve(n);
  outputs.reserve(n);
  for (size_t i : order) {
    keys.push_back(std::move(map.phoneticKeys[i]));
    outputs.push_back(std::move(map.phoneticOutputs[i]));
  }
  map.phoneticKeys = std::move(keys);
  map.phoneticOutputs = std::move(outputs);
}

void BuildFirstCharIndex(PhoneticKeymap& map, const settings::CodePage& codePage) {
  for (int code = 128; code <= kLastIndexedCode; ++code) {
    const char16_t ch = codePage.ToUnicode(static_cast<unsigned char>(code));
    map.highCodeChars[code - 128] = ch == 0xFFFD ? char16_t{0} : ch;
  }
  const auto& keys = map.phoneticKeys;
  const int count = map.EntryCount();
  for (int code = kFirstIndexedCode + 1; code <= kLastIndexedCode; ++code) {
    const char16_t ch = code < 128 ? static_cast<char16_t>(code) : map.highCodeChars[code - 128];
    auto& row = map.firstCharIndex[code - kFirstIndexedCode];
    row = {0, 0};
    if (ch == 0) continue;
    for (int i = 1; i <= count; ++i) {
      if (!keys[i].empty() && keys[i][0] == ch) {
        row[0] = i;
        break;
      }
    }
    for (int i = count; i >= 1 && row[0] != 0; --i) {
      if (!keys[i].empty() && keys[i][0] == ch) {
        row[1] = i;
        break;
      }
    }
  }
}

bool IsPunctuationCode(int code) {
  return (code >= 33 && code <= 64) || (code >= 91 && code <= 96) || (code >= 123 && code <= 126) || code == 172;
}

void BuildPunctuationOutputs(PhoneticKeymap& map, int typingMode) {
  for (auto& slot : map.punctuationOutputs) slot.clear();
  if (!UsesJoiningRules(typingMode)) return;
  for (int code = 33; code <= kLastIndexedCode; ++code) {
    if (!IsPunctuationCode(code)) continue;
    const auto& row = map.firstCharIndex[code - kFirstIndexedCode];
    auto& slot = map.punctuationOutputs[code - kFirstIndexedCode];
    for (int i = row[0]; i != 0 && i <= row[1]; ++i) {
      const auto& key = map.phoneticKeys[i];
      if (key.size() < 2) continue;
      const std::u16string_view pair(key.data(), 2);
      if (slot.find(pair) != std::u16string::npos) continue;
      if (!slot.empty()) slot += u' ';
      slot += pair;
    }
  }
}

// One marked line: false when the line is not in order.
bool AddEntry(std::u16string_view line, const KeymapLoadOptions& options, const settings::CodePage& codePage,
              PhoneticKeymap& map, std::u16string& reason) {
  const auto open = line.find(kOpen);
  const auto close = line.find(kClose);
  if (close < open + kOpen.size()) {
    reason = u"\"</om>\" comes before the end of \"<om>\"";
    return false;
  }
  const auto body = line.substr(open + kOpen.size(), close - open - kOpen.size());
  const auto blank = body.find(u' ');
  if (blank == std::u16string_view::npos) {
    reason = u"the entry has a key but no output";
    return false;
  }
  if (map.EntryCount() >= kMaxEntries) {
    reason = u"the keymap holds more entries than the engine can address";
    return false;
  }
  std::u16string key(body.substr(0, blank));
  std::u16string output = text::ReplaceAll(body.substr(blank + 1), kLineFeedMark, u"\n");
  map.phoneticKeysRaw.push_back(key);
  map.phoneticKeys.push_back(std::move(key));
  map.phoneticOutputs.push_back(output);
  if (UsesJoiningRules(options.typingMode) && options.modifierChar != 0 && !output.empty() &&
      output.back() == options.modifierChar) {
    output.pop_back();
  }
  map.phoneticOutputsWide.push_back(WideCopy(output, codePage));
  return true;
}

bool ReadLine(std::u16string_view line, const KeymapLoadOptions& options, const settings::CodePage& codePage,
              PhoneticKeymap& map, std::u16string& reason) {
  const auto joinOpen = line.find(kJoiningOpen);
  if (joinOpen != std::u16string_view::npos && line.find(kOpen) == std::u16string_view::npos) {
    const auto joinClose = line.find(kJoiningClose, joinOpen);
    const auto start = joinOpen + kJoiningOpen.size();
    if (joinClose == std::u16string_view::npos ||
        !ParseJoiningLine(line.substr(start, joinClose - start), map.joining)) {
      reason = u"the joining line does not read \"<joining>switch text low-high low-high</joining>\"";
      return false;
    }
    return true;
  }
  if (line.find(kOpen) == std::u16string_view::npos || line.find(kClose) == std::u16string_view::npos) return true;
  return AddEntry(line, options, codePage, map, reason);
}

}  // namespace

std::optional<PhoneticKeymap> ParsePhoneticKeymap(std::u16string_view text, const KeymapLoadOptions& options,
                                                  const settings::CodePage& codePage, DataFileProblem& problem) {
  const auto lines = text::Split(text, text::kCrLf);
  PhoneticKeymap map;
  for (auto* column : {&map.phoneticKeys, &map.phoneticOutputs, &map.phoneticKeysRaw, &map.phoneticOutputsWide}) {
    column->reserve(lines.size() + 1);
  }
  for (size_t i = 1; i < lines.size(); ++i) {
    std::u16string reason;
    if (!ReadLine(lines[i], options, codePage, map, reason)) {
      problem = {static_cast<int>(i) + 1, std::move(reason)};
      return std::nullopt;
    }
  }
  SortEntries(map);
  BuildFirstCharIndex(map, codePage);
  BuildPunctuationOutputs(map, options.typingMode);
  return map;
}

std::filesystem::path PhoneticKeymapPath(const std::filesystem::path& keymapFolder, std::u16string_view scheme) {
  return keymapFolder / std::filesystem::path(u"QuilomPlus-" + std::u16string(scheme) + u".xml");
}

LoadOutcome LoadPhoneticKeymap(const std::filesystem::path& keymapFolder, std::u16string_view scheme,
                               const KeymapLoadOptions& options, std::shared_ptr<const PhoneticKeymap>& tables,
                               const DataFileNotifier& notify) {
  try {
    const auto path = PhoneticKeymapPath(keymapFolder, scheme);
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) return LoadOutcome::Missing;
    std::u16string text;
    settings::TextEncoding encoding = settings::TextEncoding::Utf8NoBom;
    // A file that could not be read has already been reported; the tables in use stay.
    if (!settings::ReadTextFileChecked(path, text, encoding, false, false)) return LoadOutcome::Refused;
    DataFileProblem problem;
    auto parsed = ParsePhoneticKeymap(text, options, settings::SystemCodePage(), problem);
    if (!parsed) {
      if (notify) notify(BuildNotInOrderMessage(path.u16string(), problem.lineNumber, problem.reason));
      return LoadOutcome::Refused;
    }
    parsed->schemeName = std::u16string(scheme);
    tables = std::make_shared<const PhoneticKeymap>(std::move(*parsed));
    return LoadOutcome::Loaded;
  } catch (const std::exception& e) {
    ReportError(u"DT - LdKm", ErrorDetails{0, u"LoadPhoneticKeymap", text::Utf8ToUtf16(e.what())});
    return LoadOutcome::Refused;
  }
}

std::vector<std::u16string> InstalledKeymaps(const std::filesystem::path& keymapFolder) {
  constexpr std::u16string_view kPrefix = u"QuilomPlus-";
  constexpr std::u16string_view kSuffix = u".xml";
  std::vector<std::u16string> names;
  std::error_code ec;
  for (std::filesystem::directory_iterator it(keymapFolder, ec), end; !ec && it != end; it.increment(ec)) {
    if (!it->is_regular_file(ec)) continue;
    const std::u16string file = it->path().filename().u16string();
    if (file.size() > kPrefix.size() + kSuffix.size() && text::StartsWith(file, kPrefix) &&
        text::EndsWith(file, kSuffix)) {
      names.push_back(file.substr(kPrefix.size(), file.size() - kPrefix.size() - kSuffix.size()));
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace quilom::translit
