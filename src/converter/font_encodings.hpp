#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Which legacy encoding a font is in, by its name: the converter's search-patterns file gives,
// line by line in list order, the name prefixes of each encoding's fonts (line 0 names Unicode
// fonts). A document in Bamini and TSCII fonts is converted font by font, each by its own table.
namespace quilom::converter {

// The list position (1 for the first legacy encoding) whose patterns match the start of
// `fontName` without regard to case; nothing for a font no line names, or a Unicode font.
std::optional<int> EncodingOfFont(std::u16string_view fontName, const std::vector<std::u16string>& patternLines);

}  // namespace quilom::converter
