#include "translit/modifier_file.hpp"

#include <system_error>

#include "settings/error_report.hpp"
#include "settings/text_file.hpp"
#include "settings/text_file_checked.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::translit {
namespace {

constexpr int kFirstConsonantCode = 0x0B95;  // 2965
constexpr int kLastConsonantCode = 0x0BB9;   // 3001
constexpr size_t kMaxVowelLinesRead = 100;

using Lines = std::vector<std::u16string>;

struct Failure {
  size_t lineIndex;
  std::u16string reason;
};

size_t FindLine(const Lines& lines, std::u16string_view marker, size_t from) {
  for (size_t i = from; i < lines.size(); ++i) {
    if (lines[i] == marker) return i;
  }
  return lines.size();
}

std::u16string UncommentLongRows(std::u16string_view text) {
  std::u16string out = u"\r\n" + std::u16string(text);
  for (std::u16string_view row : {u"ee = ", u"oo = ", u"w = "}) {
    out = text::ReplaceAll(out, u"\r\n#" + std::u16string(row), u"\r\n" + std::u16string(row));
  }
  return out.substr(2);
}

bool IsLatinLetter(char16_t ch) { return (ch >= u'A' && ch <= u'Z') || (ch >= u'a' && ch <= u'z'); }

std::optional<Failure> ReadVowelRow(const std::u16string& line, size_t index, ModifierTables& t) {
  const auto fields = text::Split(text::Trim(line), u" ");
  if (fields.size() != 4 || fields[1] != u"=" || fields[2].empty() || fields[3].empty()) {
    return Failure{index, u"a vowel row must read \"key = vowel sign\""};
  }
  if (t.vowelSignCount == ModifierTables::kMaxVowelRows) {
    return Failure{index, u"there are more than 29 vowel rows"};
  }
  auto& row = t.vowelSignMap[static_cast<size_t>(++t.vowelSignCount)];
  row = {fields[0], fields[2], fields[3] == u"-" ? std::u16string() : fields[3]};
  t.maxVowelKeyLength = std::max(t.maxVowelKeyLength, static_cast<int>(row.key.size()));
  if (row.key == u"ee")
    t.hasLongEe = true;
  else if (row.key == u"oo")
    t.hasLongOo = true;
  return std::nullopt;
}

void StorePair(ModifierTables& t, int column, std::u16string sequence, std::u16string replacement) {
  const int k = t.PairCount(column) + 1;
  t.maxExtendKeyLength = std::max(t.maxExtendKeyLength, static_cast<int>(sequence.size()));
  t.Cell(2 * k - 1, column) = std::move(sequence);
  t.Cell(2 * k, column) = std::move(replacement);
  t.Cell(0, column) = text::AsciiToUtf16(std::to_string(k));
}

std::optional<Failure> ReadModifierRow(const std::u16string& line, size_t index, ModifierTables& t) {
  const auto fields = text::Split(text::Trim(line), u" ");
  if (fields.size() != 3 || fields[1] != u"=" || fields[0].size() < 2 || fields[2].empty()) {
    return Failure{index, u"a modifier row must read \"sequence+marker = replacement\""};
  }
  const int column = fields[0][0] - ModifierTables::kFirstColumnCode;
  if (column < 0 || column >= ModifierTables::kColumns) {
    return Failure{index, u"the sequence starts outside U+0B81..U+0BCD"};
  }
  if (t.PairCount(column) == ModifierTables::kMaxPairs) {
    return Failure{index, u"one letter has more than 50 modifier pairs"};
  }
  StorePair(t, column, fields[0].substr(0, fields[0].size() - 1), fields[2]);
  return std::nullopt;
}

std::optional<Failure> DeriveShorterPairs(ModifierTables& t, size_t modeLine) {
  for (int code = kFirstConsonantCode; code <= kLastConsonantCode; ++code) {
    const int column = code - ModifierTables::kFirstColumnCode;
    const int loaded = t.PairCount(column);
    for (int k = 1; k <= loaded; ++k) {
      if (t.PairCount(column) == ModifierTables::kMaxPairs) {
        return Failure{modeLine, u"the derived pairs take one letter past 50 modifier pairs"};
      }
      std::u16string s(t.Sequence(static_cast<char16_t>(code), k));
      std::u16string r(t.Replacement(static_cast<char16_t>(code), k));
      if (!s.empty()) s.pop_back();
      if (!r.empty()) r.pop_back();
      StorePair(t, column, std::move(s), std::move(r));
    }
  }
  return std::nullopt;
}

std::optional<Failure> ReadVowelSection(const Lines& lines, const ModifierLoadOptions& options, ModifierTables& t,
                                        size_t& modifierMarker) {
  const size_t maps = FindLine(lines, u"<Maps>", 0);
  const size_t first = maps == lines.size() ? 0 : maps + 1;
  modifierMarker = FindLine(lines, u"<ModifierCharacter>", first);
  if (modifierMarker + 1 >= lines.size() || lines[modifierMarker + 1].empty()) {
    return Failure{lines.size() - 1, u"the line \"<ModifierCharacter>\" and the character after it are missing"};
  }
  t.modifierChar = lines[modifierMarker + 1][0];
  for (size_t i = first; options.vowelSwitch && i < modifierMarker && i - first < kMaxVowelLinesRead; ++i) {
    const auto trimmed = text::Trim(lines[i]);
    if (trimmed.empty() || !IsLatinLetter(trimmed[0])) continue;
    if (auto failure = ReadVowelRow(lines[i], i, t)) return failure;
  }
  return std::nullopt;
}

std::optional<Failure> ReadModifierSections(const Lines& lines, const ModifierLoadOptions& options,
                                            size_t modifierMarker, ModifierTables& t) {
  const size_t mods = FindLine(lines, u"<Mods>", modifierMarker + 2);
  const size_t extend = FindLine(lines, u"<ExtendMods>", mods);
  if (mods == lines.size() || extend == lines.size()) {
    return Failure{lines.size() - 1, u"the line \"<Mods>\" or \"<ExtendMods>\" is missing"};
  }
  for (size_t i = mods + 1; options.modifierSwitch && i < extend; ++i) {
    const auto trimmed = text::Trim(lines[i]);
    if (trimmed.empty() || trimmed[0] <= 0x0B80) continue;
    if (auto failure = ReadModifierRow(lines[i], i, t)) return failure;
  }
  const size_t modeLine = extend + 1;
  const std::string mode = modeLine < lines.size() ? text::Utf16ToUtf8(text::Trim(lines[modeLine])) : "";
  if (mode.empty() || mode.size() > 4 || mode.find_first_not_of("0123456789") != std::string::npos) {
    return Failure{std::min(modeLine, lines.size() - 1), u"the line after \"<ExtendMods>\" must hold a number"};
  }
  t.extendModsMode = std::stoi(mode);
  if (t.extendModsMode == 1 && options.modifierSwitch) return DeriveShorterPairs(t, modeLine);
  return std::nullopt;
}

}  // namespace

int ModifierTables::PairCount(int column) const {
  const auto& count = Cell(0, column);
  int value = 0;
  for (char16_t ch : count) value = value * 10 + (ch - u'0');
  return value;
}

std::optional<ModifierTables> ParseModifierFile(std::u16string_view text, const ModifierLoadOptions& options,
                                                DataFileProblem& problem) {
  std::u16string whole = options.longEeOoW ? UncommentLongRows(text) : std::u16string(text);
  const Lines lines = text::Split(text::ReplaceAll(whole, u"\t", u" "), text::kCrLf);
  ModifierTables tables;
  for (int column = 0; column < ModifierTables::kColumns; ++column) tables.Cell(0, column) = u"0";
  size_t modifierMarker = 0;
  auto failure = ReadVowelSection(lines, options, tables, modifierMarker);
  if (!failure) failure = ReadModifierSections(lines, options, modifierMarker, tables);
  if (failure) {
    problem = {static_cast<int>(failure->lineIndex) + 1, std::move(failure->reason)};
    return std::nullopt;
  }
  return tables;
}

std::filesystem::path ModifierFilePath(const std::filesystem::path& mainDataFolder) {
  return mainDataFolder / "Tamil" / "xmods-Tamil-Unicode-PhoneticTransliteration.txt";
}

LoadOutcome LoadModifierFile(const std::filesystem::path& mainDataFolder, const ModifierLoadOptions& options,
                             std::shared_ptr<const ModifierTables>& tables, const DataFileNotifier& notify) {
  try {
    const auto path = ModifierFilePath(mainDataFolder);
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) return LoadOutcome::Missing;
    std::u16string text;
    settings::TextEncoding encoding = settings::TextEncoding::Utf8NoBom;
    if (!settings::ReadTextFileChecked(path, text, encoding, false, false)) return LoadOutcome::Refused;
    DataFileProblem problem;
    auto parsed = ParseModifierFile(text, options, problem);
    if (!parsed) {
      if (notify) notify(BuildNotInOrderMessage(path.u16string(), problem.lineNumber, problem.reason));
      return LoadOutcome::Refused;
    }
    tables = std::make_shared<const ModifierTables>(std::move(*parsed));
    return LoadOutcome::Loaded;
  } catch (const std::exception& e) {
    ReportError(u"DT - LdMods", ErrorDetails{0, u"LoadModifierFile", text::Utf8ToUtf16(e.what())});
    return LoadOutcome::Refused;
  }
}

}  // namespace quilom::translit
