#pragma once

#include <string_view>

// How much a text reads as English prose, 0 (not at all) to 1, for telling English from the
// legacy encodings that keep Tamil glyphs under ASCII letters. Their text is ASCII too, but its
// words break English's habits: capitals and punctuation inside words (a glyph each), words
// with no vowel, and letter pairs that English hardly writes.
namespace quilom::converter {

double EnglishLikeness(std::u16string_view text);

}  // namespace quilom::converter
