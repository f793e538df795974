#pragma once

#include <string>
#include <string_view>

#include "settings/tool_settings.hpp"

// The converter window's choices in its "Settings.txt" (module "Tamil Fonts Converter"): a key
// line "`````" + key, the value as a decimal integer on the next line. The file is only ever
// rewritten in place: a key that the file lacks is not added, and its control keeps its default.
namespace quilom::converter::window {

inline constexpr std::u16string_view kFromIndexKey = u"From Index";
inline constexpr std::u16string_view kToIndexKey = u"To Index";
inline constexpr std::u16string_view kUniIndexKey = u"Uni Index";
inline constexpr std::u16string_view kNonUniIndexKey = u"NonUni Index";
inline constexpr std::u16string_view kIrRiReeFormKey = u"IrRiRee Form";
inline constexpr std::u16string_view kPlainTextKey = u"Plain Text";
inline constexpr std::u16string_view kVowelSignsKey = u"Vowel Signs";
inline constexpr std::u16string_view kQuotesFormatKey = u"Quotes Format";

// The state of the controls that the file keeps. List positions are 0-based, -1 for none.
struct ConverterChoices {
  int fromIndex = -1;
  int toIndex = -1;
  int uniIndex = -1;
  int nonUniIndex = -1;
  bool irRiReeForm = false;
  bool plainText = false;
  bool vowelSigns = false;
  bool normalQuotes = true;
};

// Applies every key line of the file, in file order, to `choices`; a missing file or key
// leaves the fields as they were. A value that is no integer counts as 0 (a box unchecked,
// the first list row), as a blank line did in the original file.
void LoadConverterSettings(const settings::ToolSettings& file, ConverterChoices& choices);

// The value line the file holds for `key` ("1"/"0" for the boxes, "1" normal or "2"
// decorative quotes, the position for lists). Empty for an unknown key.
std::u16string SettingValue(std::u16string_view key, const ConverterChoices& choices);

// Rewrites the value line of `key` ("TFC - WrS" on failure). False when not written.
bool SaveConverterSetting(const settings::ToolSettings& file, std::u16string_view key, const ConverterChoices& choices);

// Saves the four list positions, in the order From, To, Uni, NonUni.
void SaveListPositions(const settings::ToolSettings& file, const ConverterChoices& choices);

}  // namespace quilom::converter::window
