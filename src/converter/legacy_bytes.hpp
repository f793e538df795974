#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Legacy-font text as bytes. A legacy font keeps its glyphs under byte codes, and a word
// processor shows those bytes as Windows-1252 characters, which is what the conversion tables
// are written in. The five bytes Windows-1252 leaves undefined (81, 8D, 8F, 90, 9D) stand for
// the C1 control characters of the same value, as Windows itself shows them: several legacy
// encodings keep glyphs there, so none may be lost.
namespace quilom::converter {

std::u16string LegacyBytesToText(std::string_view bytes);

// True when a byte shows `ch`: what a legacy text stored as bytes can hold.
bool HasLegacyByte(char16_t ch);

// Characters no byte shows become '?'; `unencodable` counts them.
std::string TextToLegacyBytes(std::u16string_view text, std::size_t& unencodable);

// A file of unknown kind, as the test fixtures store legacy text: UTF-8 or UTF-16 with their
// marks, UTF-8 without a mark when the bytes are valid UTF-8, else legacy bytes as above. The
// command line never guesses: it is told whether its input is legacy bytes or text.
std::u16string DecodeTextFileBytes(std::string_view bytes);

}  // namespace quilom::converter
