#include "translit/keymap_resolution.hpp"

#include <exception>

#include "settings/code_page.hpp"
#include "settings/error_report.hpp"
#include "settings/text_file_checked.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::translit {
namespace {

constexpr std::u16string_view kTamilPhonetic = u"Tamil-Unicode-PhoneticTransliteration";
constexpr std::u16string_view kTamil99 = u"Tamil-Unicode-TamilNet99";
constexpr std::u16string_view kPhoneticLayout = u"PhoneticTransliteration";
constexpr std::u16string_view kEntryStart = u"<om>";

std::filesystem::path InFolder(const std::filesystem::path& folder, std::u16string_view name,
                               std::u16string_view extension) {
  return folder / (u"QuilomPlus-" + std::u16string(name) + std::u16string(extension));
}

bool Exists(const std::filesystem::path& path) {
  std::error_code ec;
  return std::filesystem::is_regular_file(path, ec);
}

// The key of an entry line, or nullopt for a line that is not an entry.
std::optional<std::u16string_view> EntryKey(std::u16string_view line) {
  const size_t start = line.find(kEntryStart);
  if (start == std::u16string_view::npos || line.find(u"</om>", start) == std::u16string_view::npos) {
    return std::nullopt;
  }
  const auto rest = line.substr(start + kEntryStart.size());
  return rest.substr(0, rest.find(u' '));
}

bool IsLoneDigit(std::u16string_view key) { return key.size() == 1 && key[0] >= u'0' && key[0] <= u'9'; }

}  // namespace

LfkName SplitLfkName(std::u16string_view name) {
  LfkName parts;
  const size_t first = name.find(u'-');
  parts.language = std::u16string(name.substr(0, first));
  if (first == std::u16string_view::npos) return parts;
  const size_t second = name.find(u'-', first + 1);
  parts.encoding = std::u16string(name.substr(first + 1, second - first - 1));
  if (second != std::u16string_view::npos) parts.layout = std::u16string(name.substr(second + 1));
  return parts;
}

bool IsUserPhoneticScheme(std::u16string_view name) {
  const size_t at = name.find(u"PhoneticTransliteration-");
  return name != kTamilPhonetic && text::StartsWith(name, u"Tamil") && at != std::u16string_view::npos && at >= 7;
}

bool IsTamilPhoneticScheme(std::u16string_view name) {
  const auto parts = SplitLfkName(name);
  return parts.language == u"Tamil" && text::StartsWith(parts.layout, kPhoneticLayout);
}

std::filesystem::path KeymapPathFor(const settings::DataFolders& folders, const TypingSettings& settings,
                                    std::u16string_view name) {
  const auto& folder = folders.keymapFolder;
  if (IsUserPhoneticScheme(name)) return InFolder(folder, name, u".txt");
  const auto plain = InFolder(folder, name, u".xml");
  std::filesystem::path variant;
  if (name == kTamil99 && !settings.consecutiveAgaraUyirmeys) {
    variant = InFolder(folder / "ConsecutiveAgaraUyirmeys-0", name, u".xml");
  } else if (settings.chCh && SplitLfkName(name).language != u"Tamil") {
    variant = InFolder(folder / "chCh-1", name, u".xml");
  }
  return !variant.empty() && Exists(variant) ? variant : plain;
}

ModifierLoadOptions ModifierOptionsFor(const TypingSettings& settings) {
  ModifierLoadOptions options;
  options.vowelSwitch = !settings.ownKeyboardLayout;
  options.modifierSwitch = !settings.ownKeyboardLayout;
  options.longEeOoW = settings.extendedScheme;
  return options;
}

EngineSettings EngineSettingsFor(const TypingSettings& settings, std::u16string_view name) {
  const auto parts = SplitLfkName(name);
  EngineSettings engine;
  if (parts.language == u"Tamil") {
    engine.typingMode = text::StartsWith(parts.layout, kPhoneticLayout) ? 0 : 2;
  } else {
    engine.typingMode = text::StartsWith(parts.layout, kPhoneticLayout) ? 1 : 0;
    engine.punctuationSwitch = engine.typingMode == 1 && settings.classic ? 1 : 0;
  }
  return engine;
}

std::u16string AdjustKeymapText(std::u16string_view text, const TypingSettings& settings, std::u16string_view name) {
  if (!IsTamilPhoneticScheme(name)) return std::u16string(text);
  const bool numerals = settings.tamilNumerals && SplitLfkName(name).encoding == u"Unicode";
  if (!settings.excludeH && !numerals) return std::u16string(text);
  auto lines = text::Split(text, text::kCrLf);
  // Dropped entries leave a blank line, so that a problem is still reported at its own line.
  for (auto& line : lines) {
    const auto key = EntryKey(line);
    if (!key) continue;
    if ((settings.excludeH && text::StartsWith(*key, u"h")) || (numerals && IsLoneDigit(*key))) line.clear();
  }
  if (numerals) {
    if (!lines.empty() && lines.back().empty()) lines.pop_back();
    for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
      lines.push_back(u"<om>" + std::u16string(1, digit) + u" " +
                      std::u16string(1, static_cast<char16_t>(0x0BE6 + (digit - u'0'))) + u"</om>");
    }
    lines.emplace_back();
  }
  return text::Join(lines, text::kCrLf);
}

LoadOutcome LoadKeymapForSettings(const settings::DataFolders& folders, const TypingSettings& settings,
                                  std::u16string_view name, std::shared_ptr<const PhoneticKeymap>& tables,
                                  const DataFileNotifier& notify) {
  try {
    const auto path = KeymapPathFor(folders, settings, name);
    if (!Exists(path)) return LoadOutcome::Missing;
    std::u16string text;
    auto encoding = settings::TextEncoding::Utf8NoBom;
    if (!settings::ReadTextFileChecked(path, text, encoding, false, false)) return LoadOutcome::Refused;
    KeymapLoadOptions options;
    options.typingMode = EngineSettingsFor(settings, name).typingMode;
    DataFileProblem problem;
    auto parsed =
        ParsePhoneticKeymap(AdjustKeymapText(text, settings, name), options, settings::SystemCodePage(), problem);
    if (!parsed) {
      if (notify) notify(BuildNotInOrderMessage(path.u16string(), problem.lineNumber, problem.reason));
      return LoadOutcome::Refused;
    }
    parsed->schemeName = std::u16string(name);
    tables = std::make_shared<const PhoneticKeymap>(std::move(*parsed));
    return LoadOutcome::Loaded;
  } catch (const std::exception& e) {
    ReportError(u"DT - LdKs", ErrorDetails{0, u"LoadKeymapForSettings", text::Utf8ToUtf16(e.what())});
    return LoadOutcome::Refused;
  }
}

}  // namespace quilom::translit
