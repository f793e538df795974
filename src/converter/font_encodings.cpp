#include "converter/font_encodings.hpp"

#include "text/strings.hpp"

namespace quilom::converter {

std::optional<int> EncodingOfFont(std::u16string_view fontName, const std::vector<std::u16string>& patternLines) {
  const std::u16string font = text::AsciiLower(fontName);
  for (std::size_t position = 0; position < patternLines.size(); ++position) {
    for (const std::u16string& pattern : text::Split(patternLines[position], u", ")) {
      if (pattern.empty() || !font.starts_with(text::AsciiLower(pattern))) continue;
      if (position == 0) return std::nullopt;  // a Unicode font
      return static_cast<int>(position);
    }
  }
  return std::nullopt;
}

}  // namespace quilom::converter
