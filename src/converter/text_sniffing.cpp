#include "converter/text_sniffing.hpp"

#include <algorithm>
#include <cstddef>
#include <string>

#include "text/text_input.hpp"
#include "text/utf.hpp"

namespace quilom::converter {
namespace {

// A long file is settled by its beginning, as the encoding detector's is.
constexpr std::size_t kSniffLimit = 1u << 16;

bool IsBlank(unsigned char byte) { return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n'; }

// Tab, line ends, form feed, escape and the vertical tab Word writes for a manual line break
// turn up in real text; the other C0 codes and DEL do not.
bool IsControl(unsigned char byte) {
  return (byte < 0x20 && !IsBlank(byte) && byte != 0x0B && byte != 0x0C && byte != 0x1B) || byte == 0x7F;
}

bool HasUtf16Mark(std::string_view bytes) {
  const std::optional<text::TextForm> form = text::FormByMark(bytes);
  return form == text::TextForm::Utf16Le || form == text::TextForm::Utf16Be;
}

// UTF-16 of text whose characters lie below U+0100 (blanks, digits, punctuation, Latin letters)
// puts a NUL in every other byte, and only there: one half of the offsets holds NULs (Tamil
// letters have none, so a fortieth is enough), the other half none.
bool HasUtf16NulPattern(std::string_view bytes) {
  std::size_t nuls[2] = {0, 0};
  for (std::size_t i = 0; i < bytes.size(); ++i) nuls[i % 2] += bytes[i] == '\0';
  const std::size_t half = bytes.size() / 2;
  if (half == 0) return false;
  const std::size_t most = std::max(nuls[0], nuls[1]), least = std::min(nuls[0], nuls[1]);
  return most >= 2 && most * 40 >= half && least * 100 <= most;
}

// A NUL is never text; a few stray control codes may be, a share of them is not.
bool LooksBinary(std::string_view bytes) {
  std::size_t controls = 0;
  for (const char byte : bytes) {
    if (byte == '\0') return true;
    controls += IsControl(static_cast<unsigned char>(byte));
  }
  return controls * 100 > bytes.size();
}

// Cut at the start of a UTF-8 sequence, so that a long file's sample stays valid UTF-8.
std::string_view Sample(std::string_view bytes) {
  if (bytes.size() <= kSniffLimit) return bytes;
  std::size_t cut = kSniffLimit;
  for (int back = 0; back < 3 && (static_cast<unsigned char>(bytes[cut]) & 0xC0) == 0x80; ++back) --cut;
  return bytes.substr(0, cut);
}

bool IsTamilBlock(char16_t ch) { return ch >= 0x0B80 && ch <= 0x0BFF; }

// Legacy encodings never produce the Tamil block (their glyph codes are Windows-1252 or Private
// Use Area characters), so UTF-8 whose letters are a fifth or more Tamil is Unicode Tamil.
bool IsUnicodeTamil(std::string_view bytes) {
  if (text::FirstInvalidUtf8(bytes)) return false;
  const std::u16string text = text::Utf8ToUtf16(bytes);
  std::size_t tamil = 0, letters = 0;
  for (const char16_t ch : text) {
    tamil += IsTamilBlock(ch);
    letters += IsTamilBlock(ch) || (ch >= u'A' && ch <= u'Z') || (ch >= u'a' && ch <= u'z') || ch >= 0x80;
  }
  return tamil > 0 && tamil * 5 >= letters;
}

}  // namespace

std::string_view DescribeTextKind(TextKind kind) {
  switch (kind) {
    case TextKind::LegacyTamil:
      return "legacy Tamil text";
    case TextKind::Empty:
      return "empty input";
    case TextKind::English:
      return "English text";
    case TextKind::UnicodeTamil:
      return "Unicode Tamil text (UTF-8)";
    case TextKind::Utf16:
      return "UTF-16 text";
    case TextKind::Binary:
      return "binary data";
    case TextKind::Unknown:
      break;
  }
  return "text that reads as neither English nor Tamil";
}

std::optional<TextKind> SniffBytes(std::string_view bytes) {
  bytes = Sample(bytes);
  if (HasUtf16Mark(bytes) || HasUtf16NulPattern(bytes)) return TextKind::Utf16;
  if (LooksBinary(bytes)) return TextKind::Binary;
  bytes.remove_prefix(text::ByteOrderMarkLength(bytes));  // only a UTF-8 mark is left by now
  if (std::all_of(bytes.begin(), bytes.end(), [](char byte) { return IsBlank(static_cast<unsigned char>(byte)); })) {
    return TextKind::Empty;
  }
  if (IsUnicodeTamil(bytes)) return TextKind::UnicodeTamil;
  return std::nullopt;
}

}  // namespace quilom::converter
