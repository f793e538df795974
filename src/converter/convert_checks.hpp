#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "converter/conversion_run.hpp"

// The Convert button's checks and its choice of conversion table, kept out of the window so
// that the window only shows what is decided here.
//
// Tables are plain files "tables/<id>.txt" in the converter data folder, one per id:
//   legacy position p (1..51) to Unicode:  100 + p (normal quotes), 151 + p (decorative quotes)
//   Unicode to legacy position p:          202 + p ("IrRiRee Form"), 253 + p (without it)
namespace quilom::converter {

inline constexpr std::u16string_view kUnicodeRow = u"Unicode";
inline constexpr int kLegacyPositions = 51;

inline constexpr std::u16string_view kSameEncoding = u"Same encoding chosen for 'From' and 'To' encodings";
inline constexpr std::u16string_view kNoSuitableFont =
    u"No suitable font found in your system to match the NonUnicode font encoding you have currently selected";
inline constexpr std::u16string_view kBackupQuestion =
    u"Kindly PLEASE ENSURE that you have taken a BACKUP of this document before proceeding further.\r\n\r\n"
    u"Proceed further now with the conversion process?";

// The table id for a conversion, or nothing when the position is outside 1..51.
std::optional<int> LegacyToUnicodeTableId(int fromPosition, bool normalQuotes);
std::optional<int> UnicodeToLegacyTableId(int toPosition, bool irRiReeForm);

// "tables/<id>.txt" in the converter data folder.
std::filesystem::path TablePath(const std::filesystem::path& converterFolder, int tableId);

// The text of a table file. Reports "TFC - Tbl" naming the file when it is missing or empty,
// and returns "".
std::u16string LoadTableText(const std::filesystem::path& converterFolder, int tableId);

// What the window shows when the user clicks Convert (after the word-processor check and the
// backup question, which need the window's world).
struct ConvertSelection {
  std::u16string fromText;
  std::u16string toText;
  int fromPosition = -1;
  int toPosition = -1;
  int legacyFontRows = 0;  // rows of `lbxNonUniFonts`
  bool normalQuotes = true;
  bool irRiReeForm = true;
};

struct ConvertDecision {
  // Empty when the conversion goes ahead; otherwise the message to show, and stop.
  std::u16string stopMessage;
  ConversionDirection direction = ConversionDirection::LegacyToUnicode;
  int tableId = 0;
};

// Same encoding, no suitable legacy font, legacy to legacy (the two-step advice), else the
// direction and table id. Positions out of range stop with a message naming the encoding.
ConvertDecision DecideConversion(const ConvertSelection& selection);

}  // namespace quilom::converter
