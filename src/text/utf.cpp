#include "text/utf.hpp"

namespace quilom::text {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// Decodes one scalar value starting at `pos`; advances `pos` past what it consumed.
char32_t DecodeOne(std::string_view in, size_t& pos) {
  const auto lead = static_cast<unsigned char>(in[pos++]);
  if (lead < 0x80) return lead;
  int length = 0;
  char32_t value = 0;
  char32_t minimum = 0;
  if ((lead & 0xE0) == 0xC0) {
    length = 2, value = lead & 0x1F, minimum = 0x80;
  } else if ((lead & 0xF0) == 0xE0) {
    length = 3, value = lead & 0x0F, minimum = 0x800;
  } else if ((lead & 0xF8) == 0xF0) {
    length = 4, value = lead & 0x07, minimum = 0x10000;
  } else {
    return kReplacement;
  }
  for (int i = 1; i < length; ++i) {
    if (pos >= in.size() || !IsContinuation(static_cast<unsigned char>(in[pos]))) return kReplacement;
    value = (value << 6) | (static_cast<unsigned char>(in[pos++]) & 0x3F);
  }
  if (value < minimum || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return kReplacement;
  return value;
}

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

}  // namespace

std::u16string Utf8ToUtf16(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  size_t pos = 0;
  while (pos < utf8.size()) {
    AppendUtf16(out, DecodeOne(utf8, pos));
  }
  return out;
}

void AppendUtf16(std::u16string& out, char32_t codePoint) {
  if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) codePoint = kReplacement;
  if (codePoint < 0x10000) {
    out += static_cast<char16_t>(codePoint);
    return;
  }
  codePoint -= 0x10000;
  out += static_cast<char16_t>(0xD800 + (codePoint >> 10));
  out += static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
}

std::optional<std::size_t> FirstInvalidUtf8(std::string_view utf8) {
  constexpr std::string_view kEncodedReplacement = "\xEF\xBF\xBD";
  size_t pos = 0;
  while (pos < utf8.size()) {
    const size_t start = pos;
    if (DecodeOne(utf8, pos) == kReplacement && utf8.substr(start, pos - start) != kEncodedReplacement) {
      return start;
    }
  }
  return std::nullopt;
}

std::string Utf16ToUtf8(std::u16string_view utf16) {
  std::string out;
  out.reserve(utf16.size() * 3);
  for (size_t i = 0; i < utf16.size(); ++i) {
    const char16_t unit = utf16[i];
    if (unit >= 0xD800 && unit <= 0xDBFF && i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00 && utf16[i + 1] <= 0xDFFF) {
      AppendUtf8(out, 0x10000 + ((char32_t(unit) - 0xD800) << 10) + (utf16[i + 1] - 0xDC00));
      ++i;
    } else if (unit >= 0xD800 && unit <= 0xDFFF) {
      AppendUtf8(out, kReplacement);
    } else {
      AppendUtf8(out, unit);
    }
  }
  return out;
}

std::u16string AsciiToUtf16(std::string_view ascii) { return std::u16string(ascii.begin(), ascii.end()); }

}  // namespace quilom::text
