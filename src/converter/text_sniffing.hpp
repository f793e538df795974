#pragma once

#include <optional>
#include <string_view>

// What a file's bytes hold, told before any legacy encoding is tried on them. Legacy Tamil is
// font glyph codes in single bytes (or Private Use Area characters in UTF-8); text that is
// plainly something else must be named as what it is rather than read through every table,
// which would find some "Tamil" in anything.
namespace quilom::converter {

enum class TextKind {
  LegacyTamil,
  Empty,         // nothing but blanks and line ends
  English,       // Latin-script prose that reads better as English than as any legacy Tamil
  UnicodeTamil,  // UTF-8 holding the Tamil block (U+0B80..U+0BFF)
  Utf16,         // a UTF-16 mark, or NULs in every other byte
  Binary,        // NULs or control codes that no text holds
  Unknown,       // text that reads as neither English nor Tamil in any encoding
};

// What a person is told the text is: "English text", "Unicode Tamil text (UTF-8)", ...
std::string_view DescribeTextKind(TextKind kind);

// The kinds that the bytes alone settle (Empty, Utf16, Binary, UnicodeTamil), or nothing when
// the bytes may be legacy Tamil or English and must be read to tell.
std::optional<TextKind> SniffBytes(std::string_view bytes);

}  // namespace quilom::converter
