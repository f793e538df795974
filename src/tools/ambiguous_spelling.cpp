#include "tools/ambiguous_spelling.hpp"

#include <array>

namespace quilom::tools {
namespace {

struct Alternative {
  std::u16string_view spelling;
  std::u16string_view next;
};

// Longer spellings first, so "th" is found before "t".
constexpr std::array<Alternative, 12> kAlternatives = {{
    {u"ch", u"s"}, {u"th", u"dh"}, {u"dh", u"t"}, {u"ph", u"f"},
    {u"k", u"g"}, {u"g", u"k"}, {u"s", u"ch"}, {u"t", u"d"}, {u"d", u"th"},
    {u"p", u"b"}, {u"b", u"ph"}, {u"f", u"p"},
}};

bool Has(std::u16string_view text, size_t pos, std::u16string_view piece) {
  return text.substr(pos, piece.size()) == piece;
}

// True when the letter at `pos` is part of a two-letter keymap letter and not a choice.
bool InsideOtherLetter(std::u16string_view text, size_t pos) {
  const char16_t ch = text[pos];
  const char16_t before = pos > 0 ? text[pos - 1] : u'\0';
  const char16_t after = pos + 1 < text.size() ? text[pos + 1] : u'\0';
  switch (ch) {
    case u'g': return before == u'n' || after == u'n';
    case u's': return after == u'h' || before == u'S';
    case u'k': return Has(text, pos, u"ksh");
    default: return false;
  }
}

std::optional<SpellingMatch> MatchAt(std::u16string_view text, size_t pos) {
  if (InsideOtherLetter(text, pos)) return std::nullopt;
  for (const auto& alternative : kAlternatives) {
    if (Has(text, pos, alternative.spelling)) {
      return SpellingMatch{pos, alternative.spelling.size(), alternative.spelling, alternative.next};
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<SpellingMatch> FindNextAmbiguousSpelling(std::u16string_view text, size_t from) {
  for (size_t pos = from; pos < text.size(); ++pos) {
    if (auto match = MatchAt(text, pos)) return match;
  }
  return std::nullopt;
}

std::u16string ReplaceAmbiguousSpelling(std::u16string_view text, size_t position,
                                        std::optional<SpellingMatch>* match) {
  std::optional<SpellingMatch> found = position < text.size() ? MatchAt(text, position) : std::nullopt;
  if (match) *match = found;
  if (!found) return std::u16string(text);
  std::u16string result(text.substr(0, position));
  result += found->replacement;
  result += text.substr(position + found->length);
  return result;
}

}  // namespace quilom::tools
