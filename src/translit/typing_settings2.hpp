#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/data_folders.hpp"

// The second typing-settings window (`qmset2`): "inis\qm-settings-2.ini" holds name=value lines
// without sections; "inis\qm-setkeys.txt" lists the keys the window offers.
//
// Decisions of this implementation:
// - In "qm-setkeys.txt" a key line's value is the recommended value: a row whose listed value is
//   "1" is recommended, and unticking it shows kRecommendedOptionWarning. The ticks themselves
//   come from "qm-settings-2.ini" (the listed value when the ini has no such key).
// - "Classic scheme" and "Extended scheme" exclude each other: choosing one writes "1" for it
//   and "0" for the other. "Extended scheme" turns on the long ee/oo/w rows of the Tamil
//   modifier file (see keymap_resolution.hpp); "Classic scheme" leaves them as comments.
// - "qm-settings-2.replica" is the factory copy of "qm-settings-2.ini", shipped beside it and
//   never written by the program. "Restore defaults" copies its text over the data folder's
//   "qm-settings-2.ini"; the replica itself stays as it is.
namespace quilom::translit {

inline constexpr std::u16string_view kClassicScheme = u"Classic scheme";
inline constexpr std::u16string_view kExtendedScheme = u"Extended scheme";
inline constexpr std::u16string_view kSetKeysSeparator = u"------";
inline constexpr std::u16string_view kRecommendedOptionWarning =
    u"Untick this option only if you find it necessary. Otherwise, always keep this option ticked.";

// One line of "qm-setkeys.txt" as the window lists it.
struct SetKeyRow {
  bool separator = false;
  std::u16string name;   // a separator's whole line
  std::u16string value;  // the listed (recommended) value, trimmed
  bool Recommended() const { return !separator && value == u"1"; }
  // A separator shows its own line; a key shows name + " = " + value.
  std::u16string DisplayText() const;
  bool operator==(const SetKeyRow&) const = default;
};

// Splits at CR LF. Blank lines are skipped; a line holding "------" is a separator; any other
// line is split at its first "=" (a line without "=" is a key with an empty value).
std::vector<SetKeyRow> ParseSetKeys(std::u16string_view text);
std::vector<SetKeyRow> ReadSetKeys(const settings::DataFolders& folders);

// The tick of `name` in "qm-settings-2.ini", or `fallback` when the key or file is missing.
bool ReadSettings2Tick(const settings::DataFolders& folders, std::u16string_view name, bool fallback);

// The row's tick as the window shows it: the ini's value, else the listed value.
bool RowTicked(const settings::DataFolders& folders, const SetKeyRow& row);

// A click that leaves `row` `ticked`: writes it (a scheme choice also writes its partner) and
// returns the warning to show, or "" for none. Separators write nothing.
std::u16string ClickSetKeyRow(const settings::DataFolders& folders, const SetKeyRow& row, bool ticked);

// Copies the replica's text over "qm-settings-2.ini" in the data folder (UTF-16LE with mark).
// A missing or empty replica changes nothing and reports "qmset2 - RsD"; returns whether the
// ini was written.
bool RestoreSettings2Defaults(const settings::DataFolders& folders);

}  // namespace quilom::translit
