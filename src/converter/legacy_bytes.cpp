#include "converter/legacy_bytes.hpp"

#include <array>

#include "text/text_input.hpp"

namespace quilom::converter {
namespace {

// Windows-1252 bytes 80..9F; the undefined ones keep their own value.
constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

int ByteOf(char16_t ch) {
  if (ch < 0x80 || (ch >= 0xA0 && ch <= 0xFF)) {
    return ch;
  }
  for (std::size_t i = 0; i < kHigh.size(); ++i) {
    if (kHigh[i] == ch) {
      return static_cast<int>(0x80 + i);
    }
  }
  // C1 controls of defined bytes: some documents hold the raw code instead of its character.
  if (ch >= 0x80 && ch <= 0x9F) {
    return ch;
  }
  return -1;
}

}  // namespace

std::u16string LegacyBytesToText(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text.push_back(value >= 0x80 && value <= 0x9F ? kHigh[value - 0x80] : static_cast<char16_t>(value));
  }
  return text;
}

bool HasLegacyByte(char16_t ch) { return ByteOf(ch) >= 0; }

std::string TextToLegacyBytes(std::u16string_view text, std::size_t& unencodable) {
  unencodable = 0;
  std::string bytes;
  bytes.reserve(text.size());
  for (const char16_t ch : text) {
    const int byte = ByteOf(ch);
    if (byte < 0) {
      ++unencodable;
      bytes.push_back('?');
    } else {
      bytes.push_back(static_cast<char>(byte));
    }
  }
  return bytes;
}

std::u16string DecodeTextFileBytes(std::string_view bytes) {
  text::DecodedText decoded = text::DecodeTextInput(bytes);
  if (decoded.invalidAt && !text::StartsWithByteOrderMark(bytes)) {
    return LegacyBytesToText(bytes);
  }
  return std::move(decoded.text);
}

}  // namespace quilom::converter
