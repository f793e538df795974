#pragma once

#include <string>
#include <string_view>

#include "settings/text_file.hpp"

// The byte-level half of the file routines, without any file: the decoder and encoder that
// ReadTextFile and WriteTextFile wrap. Kept apart so that parsers and fuzzers can feed bytes
// straight in.
namespace quilom::settings {

struct DecodedText {
  std::u16string text;
  TextEncoding encoding = TextEncoding::Utf8NoBom;
  // False only for a big-endian file with an odd byte count: the caller reports it, and the
  // text is then empty.
  bool ok = true;
};

// Decides the encoding by the marks (FF FE, then FE FF, then EF BB BF) and decodes. Without a
// mark the bytes are UTF-8 unless `detectUtf8` is set and IsValidUtf8 fails, in which case they
// are read in the system code page. Invalid UTF-8 decodes to U+FFFD, one per bad sequence. A
// little-endian file with an odd byte count keeps its last byte as U+FFFD rather than dropping it.
// `bytes` must not be empty (an empty file has no encoding; ReadTextFile handles it).
DecodedText DecodeTextBytes(std::string_view bytes, bool detectUtf8);

// CR LF everywhere when the text holds no CR LF at all; text that already holds one is left as
// it stands, even when it also holds bare LF or CR.
std::u16string NormaliseNewlines(std::u16string_view text);

// The exact bytes of `text` in encoding `encodingCode` (1 to 5), mark included; any other
// code gives no bytes.
std::string EncodeText(std::u16string_view text, int encodingCode);

}  // namespace quilom::settings
