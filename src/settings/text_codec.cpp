#include "settings/text_codec.hpp"

#include <algorithm>
#include <cstdint>

#include "settings/code_page.hpp"
#include "text/utf.hpp"

namespace quilom::settings {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

unsigned char Byte(std::string_view bytes, size_t i) { return static_cast<unsigned char>(bytes[i]); }

bool StartsWithBytes(std::string_view bytes, std::string_view mark) { return bytes.substr(0, mark.size()) == mark; }

// `bytes` holds the text after its mark.
std::u16string FromUtf16(std::string_view bytes, bool bigEndian) {
  std::u16string out;
  out.reserve(bytes.size() / 2 + 1);
  const size_t high = bigEndian ? 0 : 1;
  for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
    out += static_cast<char16_t>((Byte(bytes, i + high) << 8) | Byte(bytes, i + 1 - high));
  }
  if (bytes.size() % 2 != 0) out += kReplacement;
  return out;
}

void AppendUtf16(std::string& out, std::u16string_view text, bool bigEndian) {
  out.reserve(out.size() + text.size() * 2);
  for (char16_t ch : text) {
    const auto high = static_cast<char>(ch >> 8);
    const auto low = static_cast<char>(ch & 0xFF);
    out += bigEndian ? high : low;
    out += bigEndian ? low : high;
  }
}

// How many bytes the lead byte of a sequence announces, by its top bits.
int SequenceLength(unsigned char lead) {
  if ((lead & 0xFC) == 0xFC) return 6;
  if ((lead & 0xF8) == 0xF8) return 5;
  if ((lead & 0xF0) == 0xF0) return 4;
  if ((lead & 0xE0) == 0xE0) return 3;
  return 2;
}

}  // namespace

bool IsValidUtf8(const unsigned char* bytes, std::int32_t count) {
  if (bytes == nullptr || count <= 0) return true;
  std::int32_t i = 0;
  while (i < count) {
    const unsigned char lead = bytes[i];
    if (lead < 128) {
      ++i;
    } else if (lead <= 191) {
      return false;
    } else if (lead <= 253) {
      const int length = SequenceLength(lead);
      if (length > count - i) return false;
      for (int k = 1; k < length; ++k) {
        if (bytes[i + k] < 128 || bytes[i + k] > 191) return false;
      }
      i += length;
    } else {
      ++i;  // 254 and 255 announce nothing and are let through, as the reader always did
    }
  }
  return true;
}

DecodedText DecodeTextBytes(std::string_view bytes, bool detectUtf8) {
  DecodedText result;
  if (StartsWithBytes(bytes, "\xFF\xFE")) {
    result.encoding = TextEncoding::Utf16LeBom;
    result.text = FromUtf16(bytes.substr(2), false);
  } else if (StartsWithBytes(bytes, "\xFE\xFF")) {
    result.encoding = TextEncoding::Utf16BeBom;
    if (bytes.size() % 2 != 0) {
      result.ok = false;
      return result;
    }
    result.text = FromUtf16(bytes.substr(2), true);
  } else if (StartsWithBytes(bytes, "\xEF\xBB\xBF")) {
    result.encoding = TextEncoding::Utf8Bom;
    result.text = text::Utf8ToUtf16(bytes.substr(3));
  } else if (detectUtf8 && !IsValidUtf8(reinterpret_cast<const unsigned char*>(bytes.data()),
                                        static_cast<std::int32_t>(std::min<size_t>(bytes.size(), INT32_MAX)))) {
    result.encoding = TextEncoding::Ansi;
    result.text = SystemCodePage().Decode(bytes);
  } else {
    result.encoding = TextEncoding::Utf8NoBom;
    result.text = text::Utf8ToUtf16(bytes);
  }
  return result;
}

std::u16string NormaliseNewlines(std::u16string_view text) {
  if (text.find(u"\r\n") != std::u16string_view::npos) return std::u16string(text);
  const char16_t bare = text.find(u'\n') != std::u16string_view::npos ? u'\n' : u'\r';
  std::u16string out;
  out.reserve(text.size() + text.size() / 16);
  for (char16_t ch : text) {
    if (ch == bare) {
      out += u"\r\n";
    } else {
      out += ch;
    }
  }
  return out;
}

std::string EncodeText(std::u16string_view text, int encodingCode) {
  std::string out;
  switch (encodingCode) {
    case static_cast<int>(TextEncoding::Ansi):
      return SystemCodePage().Encode(text);
    case static_cast<int>(TextEncoding::Utf8Bom):
      return "\xEF\xBB\xBF" + text::Utf16ToUtf8(text);
    case static_cast<int>(TextEncoding::Utf16LeBom):
      out = "\xFF\xFE";
      AppendUtf16(out, text, false);
      return out;
    case static_cast<int>(TextEncoding::Utf8NoBom):
      return text::Utf16ToUtf8(text);
    case static_cast<int>(TextEncoding::Utf16BeBom):
      out = "\xFE\xFF";
      AppendUtf16(out, text, true);
      return out;
    default:
      return out;
  }
}

}  // namespace quilom::settings
