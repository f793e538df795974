#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Conversions at the program's edges. Text inside the program is UTF-16; files, the
// terminal and the command line speak UTF-8.
namespace quilom::text {

// Invalid UTF-8 (stray continuation bytes, truncated sequences, overlong forms, surrogates,
// values above U+10FFFF) decodes to U+FFFD, one per offending byte sequence, so that no input
// is silently dropped and the damage stays visible.
std::u16string Utf8ToUtf16(std::string_view utf8);

// Appends one character as UTF-16 (two units above U+FFFF); a value that is no character (a
// surrogate, above U+10FFFF) is appended as U+FFFD.
void AppendUtf16(std::u16string& out, char32_t codePoint);

// The offset of the first byte of the first sequence that is not valid UTF-8 (as above), or
// nothing when every byte is valid. A literal U+FFFD in the input is valid.
std::optional<std::size_t> FirstInvalidUtf8(std::string_view utf8);

// A lone surrogate encodes as U+FFFD.
std::string Utf16ToUtf8(std::u16string_view utf16);

// For literals and ASCII-only names: each byte becomes one code unit.
std::u16string AsciiToUtf16(std::string_view ascii);

}  // namespace quilom::text
