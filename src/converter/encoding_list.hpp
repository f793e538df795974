#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The encodings the converter ships, by list position (0 "Unicode", then the legacy ones), for
// callers that name an encoding rather than click it: the command line and the detector.
namespace quilom::converter {

struct EncodingList {
  std::vector<std::u16string> names;

  // The position of `name`, compared without regard to ASCII case; nothing when unknown.
  std::optional<int> Position(std::u16string_view name) const;
  // "Unicode, Anjal, Anu, ..." for messages.
  std::u16string Joined() const;
};

// Reads the encodings file of the converter data folder ("" lines are dropped from the end).
EncodingList LoadEncodingList(const std::filesystem::path& converterFolder);

// Encodings whose glyph codes lie in the Private Use Area: their text cannot be stored as
// Windows-1252 bytes and is kept in UTF-8.
bool UsesPrivateUseGlyphs(std::u16string_view encodingName);

}  // namespace quilom::converter
