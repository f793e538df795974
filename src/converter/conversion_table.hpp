#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Conversion tables in their plain-text form: one pair a line, "find replacement", CR LF
// between lines, applied in line order as one replace-all per pair.
namespace quilom::converter {

// Replaces each fullwidth form of an ASCII symbol or digit by its placeholder:
// U+FF01..U+FF20 -> U+0226..U+0245, U+FF3B..U+FF40 -> U+0246..U+024B,
// U+FF5B..U+FF5E -> U+024C..U+024F. Fullwidth letters are left alone.
std::u16string ToPlaceholders(std::u16string_view text);

// True for the characters that open the placeholder block of a table (U+0226 to U+0253).
bool IsPlaceholderCode(char16_t ch);

struct TablePair {
  std::u16string find;
  std::u16string replacement;
};

// A table read into pairs, with the markers the run notes while reading. Indexes are 0-based
// positions in `pairs`; a marker that no pair sets is empty.
struct ConversionTable {
  std::vector<TablePair> pairs;
  // The first pair whose find text begins with a placeholder, and the last such pair after it.
  // The run clears the find font for the pairs from the first to the last: the placeholders
  // were written by earlier pairs in the replacement font, so only a font-free find sees them.
  std::optional<std::size_t> placeholderFirst;
  std::optional<std::size_t> placeholderLast;
  // The first pair whose replacement begins with a Tamil vowel sign (U+0BBE to U+0BCD).
  std::optional<std::size_t> vowelSignFirst;
  // Pairs whose find text is a straight quote (' or ").
  std::vector<std::size_t> quotePairs;
  // The block of pairs whose replacement begins with U+0227, U+022C or U+0250..U+0253 (the
  // placeholders of the fullwidth quotes and their companions).
  std::optional<std::size_t> quoteBlockFirst;
  std::optional<std::size_t> quoteBlockLast;

  // True when pair `index` lies in the placeholder block.
  bool InPlaceholderBlock(std::size_t index) const;
};

// Reads a table's text: fullwidth symbols become placeholders first, then the text is split at
// CR LF and each line at its first blank. Field 1 is the find text, field 2 the replacement;
// text after a second blank is ignored; a line without a blank gives an empty replacement (its
// find text is deleted). An empty line gives a pair with an empty find text, which replaces
// nothing. Fields are kept literal: "^" is not doubled here (see EscapeCaretsForWord).
ConversionTable ParseConversionTable(std::u16string_view tableText);

// The find or replacement text as Word's find-and-replace must be given it to find `text`
// literally: every "^" doubled. Only the Word layer calls this; the table and the run keep
// literal texts, and other editors take them as they are.
std::u16string EscapeCaretsForWord(std::u16string_view text);

}  // namespace quilom::converter
