#pragma once

#include <optional>
#include <string>
#include <string_view>

// The find-and-replace of spellings that stand for more than one sound: k/g, ch/s, th/dh/t/d
// and p/b/ph/f. Reverse transliteration picks one of each group by context; these calls let
// the user step through the output and swap a pick for the next spelling of its group.
//
// Spellings inside the keymap's own two-letter letters are not offered: the "g" of "ng" and
// "gn", the "s" of "sh" and "Ss", the "k" of "ksh", the "h" of "zh". Matching is
// case-sensitive, since "S", "T" and "D" are other letters.
namespace quilom::tools {

struct SpellingMatch {
  size_t position = 0;
  size_t length = 0;
  std::u16string_view spelling;     // what is there now
  std::u16string_view replacement;  // the next spelling of its group
};

// The first ambiguous spelling that starts at or after `from`, or nothing (also for `from`
// past the end).
std::optional<SpellingMatch> FindNextAmbiguousSpelling(std::u16string_view text, size_t from);

// Replaces the match found at `position` by its replacement. When no ambiguous spelling starts
// exactly at `position` the text is returned unchanged. `match` receives what was replaced,
// so the caller can select the new spelling (position, replacement length) and press again to
// go on through the group.
std::u16string ReplaceAmbiguousSpelling(std::u16string_view text, size_t position,
                                        std::optional<SpellingMatch>* match = nullptr);

}  // namespace quilom::tools
