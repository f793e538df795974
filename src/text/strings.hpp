#pragma once

#include <string>
#include <string_view>
#include <vector>

// Small string routines over UTF-16 text, shared by every subsystem.
namespace quilom::text {

inline constexpr std::u16string_view kCrLf = u"\r\n";

// Splits at every occurrence of `separator`; n separators give n + 1 pieces (empty pieces
// kept), so that Join(Split(s, sep), sep) == s. An empty text gives one empty piece.
std::vector<std::u16string> Split(std::u16string_view text, std::u16string_view separator);

std::u16string Join(const std::vector<std::u16string>& pieces, std::u16string_view separator);

// Trims blanks (U+0020) and tabs at both ends.
std::u16string Trim(std::u16string_view text);

// Replaces every non-overlapping occurrence of `from`, scanning left to right.
std::u16string ReplaceAll(std::u16string_view text, std::u16string_view from, std::u16string_view to);

bool StartsWith(std::u16string_view text, std::u16string_view prefix);
bool EndsWith(std::u16string_view text, std::u16string_view suffix);

// Lower-cases ASCII letters only; other characters are unchanged.
std::u16string AsciiLower(std::u16string_view text);

}  // namespace quilom::text
