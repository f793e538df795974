#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Bytes that are meant to be Unicode text, read the same way by every command: UTF-8 with or
// without its mark, UTF-16LE or UTF-16BE with their marks. Text without a mark is UTF-8; there
// is no guessing of other encodings, so that legacy-font bytes are never taken for text (or
// text for legacy bytes) because they happen to look valid.
namespace quilom::text {

enum class TextForm { Utf8, Utf8WithMark, Utf16Le, Utf16Be };

struct DecodedText {
  std::u16string text;
  TextForm form = TextForm::Utf8;
  // The offset of the first byte that breaks the form: an invalid UTF-8 sequence, or the odd
  // last byte of UTF-16. Such bytes decode to U+FFFD in `text`.
  std::optional<std::size_t> invalidAt;
};

DecodedText DecodeTextInput(std::string_view bytes);

// True when the bytes open with the mark of UTF-8 or UTF-16.
bool StartsWithByteOrderMark(std::string_view bytes);

// "UTF-8", "UTF-16LE"... as messages name the form.
std::string_view TextFormName(TextForm form);

}  // namespace quilom::text
