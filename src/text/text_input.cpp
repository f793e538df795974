#include "text/text_input.hpp"

#include "text/utf.hpp"

namespace quilom::text {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LeMark = "\xFF\xFE";
constexpr std::string_view kUtf16BeMark = "\xFE\xFF";

DecodedText FromUtf16(std::string_view bytes, TextForm form) {
  DecodedText decoded{{}, form, std::nullopt};
  decoded.text.reserve(bytes.size() / 2);
  const bool bigEndian = form == TextForm::Utf16Be;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    decoded.text.push_back(static_cast<char16_t>(bigEndian ? (first << 8) | second : (second << 8) | first));
  }
  if (bytes.size() % 2 != 0) {
    decoded.invalidAt = bytes.size() - 1 + 2;  // counted from the file's start, mark included
    decoded.text.push_back(u'\uFFFD');
  }
  return decoded;
}

DecodedText FromUtf8(std::string_view bytes, TextForm form, std::size_t markLength) {
  DecodedText decoded{Utf8ToUtf16(bytes), form, FirstInvalidUtf8(bytes)};
  if (decoded.invalidAt) {
    *decoded.invalidAt += markLength;
  }
  return decoded;
}

}  // namespace

DecodedText DecodeTextInput(std::string_view bytes) {
  if (bytes.starts_with(kUtf8Mark)) {
    return FromUtf8(bytes.substr(kUtf8Mark.size()), TextForm::Utf8WithMark, kUtf8Mark.size());
  }
  if (bytes.starts_with(kUtf16LeMark)) {
    return FromUtf16(bytes.substr(kUtf16LeMark.size()), TextForm::Utf16Le);
  }
  if (bytes.starts_with(kUtf16BeMark)) {
    return FromUtf16(bytes.substr(kUtf16BeMark.size()), TextForm::Utf16Be);
  }
  return FromUtf8(bytes, TextForm::Utf8, 0);
}

bool StartsWithByteOrderMark(std::string_view bytes) {
  return bytes.starts_with(kUtf8Mark) || bytes.starts_with(kUtf16LeMark) || bytes.starts_with(kUtf16BeMark);
}

std::string_view TextFormName(TextForm form) {
  switch (form) {
    case TextForm::Utf8WithMark:
      return "UTF-8 (with its mark)";
    case TextForm::Utf16Le:
      return "UTF-16LE";
    case TextForm::Utf16Be:
      return "UTF-16BE";
    case TextForm::Utf8:
      break;
  }
  return "UTF-8";
}

}  // namespace quilom::text
