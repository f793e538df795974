#include "translit/catalogue_filters.hpp"

#include <algorithm>

#include "text/strings.hpp"

namespace quilom::translit {
namespace {

constexpr std::array<std::u16string_view, 6> kLegacyEncodings = {u"Stmzh", u"Bamini", u"Shreelipi",
                                                                 u"Tab",   u"Tam",    u"Tscii"};

bool IsOff(std::u16string_view key, std::u16string_view allEntry) { return key.empty() || key == FilterKey(allEntry); }

bool LanguageMatches(const LfkRow& row, std::u16string_view entry) {
  const auto key = FilterKey(entry);
  if (IsOff(key, kAllLanguages)) return true;
  const auto language = text::AsciiLower(row.language);
  if (key == FilterKey(kExceptTamil)) return language != u"tamil";
  return language == key;
}

bool EncodingMatches(const LfkRow& row, std::u16string_view entry) {
  const auto key = FilterKey(entry);
  if (IsOff(key, kAllEncodings)) return true;
  const auto encoding = text::AsciiLower(row.encoding);
  if (key == FilterKey(kNonUnicode)) return encoding != u"unicode";
  return encoding == key;
}

bool LayoutMatches(const LfkRow& row, std::u16string_view entry) {
  const auto key = FilterKey(entry);
  return IsOff(key, kAllLayouts) || text::AsciiLower(row.layout) == key;
}

template <size_t N>
std::vector<std::u16string> ToStrings(const std::array<std::u16string_view, N>& entries) {
  return {entries.begin(), entries.end()};
}

}  // namespace

std::vector<std::u16string> EncodingVocabulary(std::u16string_view personNamedEncoding, VocabularyUse use) {
  std::vector<std::u16string> entries{std::u16string(kAllEncodings), u"Unicode", std::u16string(kNonUnicode)};
  if (!personNamedEncoding.empty()) entries.emplace_back(personNamedEncoding);
  for (const auto encoding : kLegacyEncodings) {
    entries.emplace_back(use == VocabularyUse::Finder && encoding == u"Stmzh" ? kStmzhFinderLabel : encoding);
  }
  return entries;
}

std::vector<std::u16string> LanguageVocabulary() { return ToStrings(kLanguageFilters); }
std::vector<std::u16string> LayoutVocabulary() { return ToStrings(kLayoutFilters); }

std::u16string PersonNamedEncoding(const std::vector<LfkRow>& original) {
  for (const auto& row : original) {
    const auto key = text::AsciiLower(row.encoding);
    const bool known = key.empty() || key == u"unicode" ||
                       std::any_of(kLegacyEncodings.begin(), kLegacyEncodings.end(),
                                   [&](std::u16string_view fixed) { return text::AsciiLower(fixed) == key; });
    if (!known) return row.encoding;
  }
  return {};
}

std::u16string FilterKey(std::u16string_view entry) {
  const size_t note = entry.find(u" (");
  if (note != std::u16string_view::npos && text::EndsWith(entry, u")")) entry = entry.substr(0, note);
  return text::AsciiLower(text::Trim(entry));
}

bool RowMatches(const LfkRow& row, const LfkChoice& choice) {
  return LanguageMatches(row, choice.language) && EncodingMatches(row, choice.encoding) &&
         LayoutMatches(row, choice.layout);
}

std::vector<bool> VisibleRows(const std::vector<LfkRow>& rows, const LfkChoice& choice) {
  std::vector<bool> visible;
  visible.reserve(rows.size());
  for (const auto& row : rows) visible.push_back(RowMatches(row, choice));
  return visible;
}

std::u16string NoMatchingLfkMessage(std::u16string_view choice, std::u16string_view language) {
  return u"No LFK matching '" + std::u16string(choice) + u"' found in the current list of visible LFKs.\r\n\r\n" +
         u"So, will just highlight the first LFK found with '" + std::u16string(language) + u"' as language.\r\n\r\n" +
         u"TIP: You can use the 'Filter By' facility at the top to first identify what all LFKs are available for "
         u"a particular language.";
}

FinderResult FindLfk(const std::vector<LfkRow>& rows, const std::vector<bool>& visible, const LfkChoice& choice,
                     std::u16string_view changedEntry) {
  const auto isVisible = [&](size_t i) { return i < visible.size() && visible[i]; };
  FinderResult result;
  for (size_t i = 0; i < rows.size(); ++i) {
    if (isVisible(i) && RowMatches(rows[i], choice)) {
      result.row = static_cast<int>(i);
      return result;
    }
  }
  result.message = NoMatchingLfkMessage(changedEntry, choice.language);
  const LfkChoice languageOnly{choice.language, std::u16string(kAllEncodings), std::u16string(kAllLayouts)};
  for (const bool visibleOnly : {true, false}) {
    for (size_t i = 0; i < rows.size(); ++i) {
      if ((!visibleOnly || isVisible(i)) && RowMatches(rows[i], languageOnly)) {
        result.row = static_cast<int>(i);
        return result;
      }
    }
  }
  return result;
}

}  // namespace quilom::translit
