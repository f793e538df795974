#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

// Whole-file reading and writing of text in the five encodings every data and settings file
// may use. All of the program's files go through these two routines.
namespace quilom::settings {

enum class TextEncoding : int {
  Ansi = 1,        // the system code page, no mark
  Utf8Bom = 2,     // EF BB BF, then UTF-8
  Utf16LeBom = 3,  // FF FE, then UTF-16LE (every settings save)
  Utf8NoBom = 4,   // UTF-8, no mark
  Utf16BeBom = 5,  // FE FF, then UTF-16BE
};

// Reads a file whole. `encoding` receives the detected code (untouched for an empty file).
// Files without a mark are UTF-8 unless `detectUtf8` asks to test them (then invalid UTF-8 is
// read in the system code page). With `normaliseNewlines`, bare LF or bare CR become CR LF
// unless the text already holds a CR LF. A missing or unreadable file reports "RFF" + CR LF +
// "(" + path + ")" and gives what was read (usually nothing); a 0-byte file gives "" silently.
//
// The result-mode argument keeps the original calling convention: when `resultMode` is
// non-empty the text is returned; when it is empty the text is stored into `resultMode` and
// the return value is empty.
//
// Decisions of this implementation: invalid UTF-8 decodes to U+FFFD, one per bad sequence, so
// damage stays visible; an FF FE file with an odd byte count keeps its last byte as U+FFFD (only
// the big-endian case is an error); files are opened through ShortPathOf (short_path.hpp).
std::u16string ReadTextFile(const std::filesystem::path& path, std::u16string& resultMode, TextEncoding& encoding,
                            bool detectUtf8, bool normaliseNewlines);

// The common case: text returned, no detection, no newline change.
std::u16string ReadTextFile(const std::filesystem::path& path);

// Replaces the file's contents with `text` in the encoding of `encodingCode` (1 to 5); any other
// code leaves a 0-byte file. The new contents are written to a temporary file beside the target
// and then moved over it, so a failure mid-way leaves the previous file whole. Reports
// "WT-File" and returns false on failure. The new file keeps the old one's permissions; a file
// marked read-only is not replaced (reported), and a symbolic link keeps pointing at the file
// it named, whose contents are replaced.
bool WriteTextFile(const std::filesystem::path& path, std::u16string_view text, int encodingCode);

// The permissive UTF-8 test of the file reader: five- and six-byte forms pass, overlong forms
// and surrogates are not looked for.
bool IsValidUtf8(const unsigned char* bytes, std::int32_t count);

}  // namespace quilom::settings
