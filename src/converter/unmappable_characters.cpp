#include "converter/unmappable_characters.hpp"

#include <cstdio>
#include <tuple>

#include "converter/convert_checks.hpp"
#include "converter/legacy_bytes.hpp"

namespace quilom::converter {
namespace {

constexpr std::size_t kCodeUnits = 0x10000;

bool IsTamil(char32_t ch) { return ch >= 0x0B80 && ch <= 0x0BFF; }

bool IsJoiner(char16_t ch) { return ch == u'\u200C' || ch == u'\u200D'; }

bool IsHighSurrogate(char16_t ch) { return ch >= 0xD800 && ch <= 0xDBFF; }

bool IsLowSurrogate(char16_t ch) { return ch >= 0xDC00 && ch <= 0xDFFF; }

// One character of UTF-16 text: its code point and how many units it takes.
std::pair<char32_t, std::size_t> CharacterAt(std::u16string_view text, std::size_t i) {
  if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
    return {0x10000 + ((char32_t(text[i]) - 0xD800) << 10) + (text[i + 1] - 0xDC00), 2};
  }
  return {text[i], 1};
}

// The column (1-based, in characters) of the first `ch` on line `line` of `text`, or nothing.
std::optional<std::size_t> ColumnOf(std::u16string_view text, std::size_t line, char32_t ch) {
  std::size_t currentLine = 1;
  std::size_t column = 0;
  for (std::size_t i = 0; i < text.size();) {
    const auto [found, units] = CharacterAt(text, i);
    i += units;
    if (found == u'\n') {
      if (currentLine++ == line) return std::nullopt;
      column = 0;
      continue;
    }
    ++column;
    if (currentLine == line && found == ch) return column;
  }
  return std::nullopt;
}

void AppendCharacter(std::u16string& text, std::u16string_view source, std::size_t at, std::size_t units) {
  text.append(source.substr(at, units));
}

}  // namespace

void UnmappableFindings::Add(const UnmappableCharacter& found) {
  ++count;
  if (!first || std::tie(found.line, found.column) < std::tie(first->line, first->column)) {
    first = found;
  }
}

void UnmappableFindings::Merge(const UnmappableFindings& other, std::size_t linesBefore) {
  if (other.first) {
    UnmappableCharacter first = *other.first;
    first.line += linesBefore;
    Add(first);
  }
  count += other.count - (other.first ? 1 : 0);
}

LegacyRepertoire::LegacyRepertoire(const std::vector<TablePair>& reading, const std::vector<TablePair>& writing,
                                   bool storedAsBytes)
    : glyphCodes_(kCodeUnits), writtenAlone_(kCodeUnits), storedAsBytes_(storedAsBytes) {
  for (const TablePair& pair : reading) {
    for (const char16_t ch : pair.find) glyphCodes_[ch] = true;
  }
  for (const TablePair& pair : writing) {
    if (pair.find.size() == 1) writtenAlone_[pair.find[0]] = true;
  }
}

bool LegacyRepertoire::CanHold(char16_t ch) const {
  if (IsTamil(ch) || IsHighSurrogate(ch) || IsLowSurrogate(ch)) return false;
  if (WrittenAlone(ch)) return true;
  return !ReadAsGlyph(ch) && (!storedAsBytes_ || HasLegacyByte(ch));
}

bool LegacyRepertoire::PassesAsGlyph(char16_t ch) const { return !IsTamil(ch) && ReadAsGlyph(ch) && !WrittenAlone(ch); }

bool LegacyRepertoire::IsLeftOver(char16_t ch) const { return IsTamil(ch) || (storedAsBytes_ && !HasLegacyByte(ch)); }

UnmappableGuard::UnmappableGuard(const LegacyRepertoire& repertoire, UnmappablePolicy policy, char16_t replacement)
    : repertoire_(repertoire), policy_(policy), replacement_(replacement) {}

template <typename IsUnmappable, typename Locate>
std::u16string UnmappableGuard::Resolve(std::u16string_view text, const IsUnmappable& isUnmappable,
                                        const Locate& locate) {
  std::u16string resolved;
  resolved.reserve(text.size());
  std::size_t line = 1;
  std::size_t column = 0;
  for (std::size_t i = 0; i < text.size();) {
    const auto [ch, units] = CharacterAt(text, i);
    ++column;
    if (ch == u'\n') {
      ++line;
      column = 0;
    }
    if (!isUnmappable(text.substr(i, units))) {
      AppendCharacter(resolved, text, i, units);
    } else {
      locate(UnmappableCharacter{ch, line, column});
      if (policy_ == UnmappablePolicy::Replace) {
        resolved.push_back(replacement_);
      } else if (policy_ != UnmappablePolicy::Skip) {
        AppendCharacter(resolved, text, i, units);
      }
    }
    i += units;
  }
  return resolved;
}

std::u16string UnmappableGuard::PrepareSource(std::u16string_view source) {
  std::u16string withoutJoiners;
  withoutJoiners.reserve(source.size());
  for (const char16_t ch : source) {
    if (!IsJoiner(ch)) withoutJoiners.push_back(ch);
  }
  const auto readAsGlyph = [this](std::u16string_view ch) {
    return ch.size() == 1 && ch[0] >= u' ' && repertoire_.PassesAsGlyph(ch[0]);
  };
  return Resolve(withoutJoiners, readAsGlyph, [this](const UnmappableCharacter& found) { findings_.Add(found); });
}

std::u16string UnmappableGuard::FinishWritten(std::u16string_view written, std::u16string_view source) {
  const auto leftOver = [this](std::u16string_view ch) { return repertoire_.IsLeftOver(ch[0]); };
  std::size_t locatedLine = 0;
  const auto locate = [&](UnmappableCharacter found) {
    // Only the first on each line is placed in the source (the table may have moved it, a
    // prefix glyph going before its letter); the rest are counted.
    if (found.line != locatedLine) {
      locatedLine = found.line;
      found.column = ColumnOf(source, found.line, found.ch).value_or(found.column);
      findings_.Add(found);
    } else {
      ++findings_.count;
    }
  };
  return Resolve(written, leftOver, locate);
}

std::optional<LegacyRepertoire> LoadLegacyRepertoire(const std::filesystem::path& converterFolder, int position,
                                                     bool irRiReeForm, bool storedAsBytes) {
  const std::optional<int> readingId = LegacyToUnicodeTableId(position, false);
  const std::optional<int> writingId = UnicodeToLegacyTableId(position, irRiReeForm);
  if (!readingId || !writingId) return std::nullopt;
  const std::u16string reading = LoadTableText(converterFolder, *readingId);
  const std::u16string writing = LoadTableText(converterFolder, *writingId);
  if (reading.empty() || writing.empty()) return std::nullopt;
  return LegacyRepertoire(ParseConversionTable(reading).pairs, ParseConversionTable(writing).pairs, storedAsBytes);
}

std::string CodePointName(char32_t ch) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "U+%04X", static_cast<unsigned>(ch));
  return buffer;
}

}  // namespace quilom::converter
