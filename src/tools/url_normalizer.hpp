#pragma once

#include <optional>
#include <string>
#include <string_view>

// The URL normaliser: a percent-encoded address, as a browser copies it, back to readable
// Unicode text.
namespace quilom::tools {

// Decodes `input`. Only capital hexadecimal digits count ("%e0" is not decoded: the "%" is
// dropped and "e0" copied), and a run of them has no length limit ("%20AB" is one value). The
// pieces are joined one byte per character and the bytes decoded as UTF-8 (invalid sequences
// become U+FFFD). Returns nothing when the input is blank, or cannot become bytes: a character
// of code 256 or more, or a run worth 256 or more. The caller then leaves its output alone.
std::optional<std::u16string> NormalizeUrl(std::u16string_view input);

// What "Auto Open" may hand to the shell for `output`: the text from its first "http" up to
// the first blank, tab or line break, but only when that is a well-formed web address: "http://" or "https://" (lower
// case), a host of letters, digits, "-" and "." (or any non-ASCII letters of an international
// name), an optional ":port", then nothing or a path, query or fragment after "/", "?" or "#",
// with no control characters or characters that addresses never hold. Anything else, including text that names a
// file or a program, gives nothing, so decoded text can never start a program.
std::optional<std::u16string> AddressToOpen(std::u16string_view output);

bool IsOpenableWebAddress(std::u16string_view address);

}  // namespace quilom::tools
