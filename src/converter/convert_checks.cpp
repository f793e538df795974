#include "converter/convert_checks.hpp"

#include <string>

#include "settings/error_report.hpp"
#include "settings/text_file.hpp"
#include "text/utf.hpp"

namespace quilom::converter {
namespace {

bool IsLegacyPosition(int position) { return position >= 1 && position <= kLegacyPositions; }

}  // namespace

std::optional<int> LegacyToUnicodeTableId(int fromPosition, bool normalQuotes) {
  if (!IsLegacyPosition(fromPosition)) {
    return std::nullopt;
  }
  return fromPosition + (normalQuotes ? 100 : 151);
}

std::optional<int> UnicodeToLegacyTableId(int toPosition, bool irRiReeForm) {
  if (!IsLegacyPosition(toPosition)) {
    return std::nullopt;
  }
  return toPosition + (irRiReeForm ? 202 : 253);
}

std::filesystem::path TablePath(const std::filesystem::path& converterFolder, int tableId) {
  return converterFolder / "tables" / (std::to_string(tableId) + ".txt");
}

std::u16string LoadTableText(const std::filesystem::path& converterFolder, int tableId) {
  const std::filesystem::path file = TablePath(converterFolder, tableId);
  if (!std::filesystem::exists(file)) {
    ReportError(u"TFC - Tbl", {0, u"Quilom++", u"The conversion table is missing: " + file.u16string()});
    return {};
  }
  std::u16string text = settings::ReadTextFile(file);
  if (text.empty()) {
    ReportError(u"TFC - Tbl", {0, u"Quilom++", u"The conversion table is empty: " + file.u16string()});
  }
  return text;
}

ConvertDecision DecideConversion(const ConvertSelection& selection) {
  ConvertDecision decision;
  if (selection.fromText == selection.toText) {
    decision.stopMessage = kSameEncoding;
    return decision;
  }
  if (selection.legacyFontRows < 3) {
    decision.stopMessage = kNoSuitableFont;
    return decision;
  }
  std::optional<int> id;
  if (selection.toText == kUnicodeRow) {
    decision.direction = ConversionDirection::LegacyToUnicode;
    id = LegacyToUnicodeTableId(selection.fromPosition, selection.normalQuotes);
  } else if (selection.fromText == kUnicodeRow) {
    decision.direction = ConversionDirection::UnicodeToLegacy;
    id = UnicodeToLegacyTableId(selection.toPosition, selection.irRiReeForm);
  } else {
    decision.stopMessage = u"First, convert your text in '" + selection.fromText +
                           u"' font(s) to Unicode. Then, convert the resultant Unicode text to '" + selection.toText +
                           u"' font.";
    return decision;
  }
  if (!id) {
    const std::u16string& legacy = selection.toText == kUnicodeRow ? selection.fromText : selection.toText;
    decision.stopMessage = u"There is no conversion table for '" + legacy + u"'.";
    return decision;
  }
  decision.tableId = *id;
  return decision;
}

}  // namespace quilom::converter
