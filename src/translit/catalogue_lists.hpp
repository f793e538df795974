#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/data_folders.hpp"

// The catalogue's list files, "inps\Settings-Lfks-" + list name + ".txt" in the main data
// folder: one LFK a line, "Language-Encoding-Layout fourth", CR LF after every line.
//
// Decisions of this implementation:
// - The fourth column is the LFK's number in the "Original" list. It travels with its row when
//   the rows are moved, sorted or finalised, so every list still tells where each LFK came from;
//   the window shows it as a narrow "No." column.
// - A line is split at its first blank (LFK names hold none) and the name at its first two "-";
//   the layout is everything after the second "-". Blank lines are skipped.
// - Lists are written in the encoding of the "Original" list (UTF-16LE with mark when that list
//   cannot be read), so every list file of the folder stays in one encoding.
namespace quilom::translit {

struct LfkRow {
  std::u16string language;
  std::u16string encoding;
  std::u16string layout;
  std::u16string fourth;
  // language + "-" + encoding + "-" + layout, the name the keymap files and the floater use.
  std::u16string Name() const;
  bool operator==(const LfkRow&) const = default;
};

inline constexpr std::u16string_view kOriginalList = u"Original";
inline constexpr std::u16string_view kSortedList = u"Sorted";
inline constexpr std::u16string_view kFinalizedList = u"Finalized";
inline constexpr int kChoiceLists = 9;
// The "Move To" list's entries, split at "|".
inline constexpr std::u16string_view kMoveToEntries = u"1|2|3|4|5|6|7|8|9";

// "Choices-" + n for n = 1 to 9; "" for any other n.
std::u16string ChoiceListName(int n);
std::vector<std::u16string> MoveToEntries();

// An LFK name split into its row (fourth column empty).
LfkRow LfkRowOfName(std::u16string_view name);
std::optional<LfkRow> ParseLfkLine(std::u16string_view line);
std::vector<LfkRow> ParseLfkList(std::u16string_view text);
// Every row as "Language-Encoding-Layout fourth" (no blank when the fourth column is empty),
// each followed by CR LF.
std::u16string FormatLfkList(const std::vector<LfkRow>& rows);

std::filesystem::path LfkListPath(const settings::DataFolders& folders, std::u16string_view listName);

// The rows of a list; nullopt when its file does not exist (a choice never saved) or the list
// name is empty. An unreadable file is reported by the file reader and gives nullopt.
std::optional<std::vector<LfkRow>> LoadLfkList(const settings::DataFolders& folders, std::u16string_view listName);

// Writes the rows as the list `listName` (Finalize writes kFinalizedList; "Move To" n writes
// ChoiceListName(n)). Returns whether the file was written; a failure is reported ("WT-File").
bool SaveLfkList(const settings::DataFolders& folders, std::u16string_view listName, const std::vector<LfkRow>& rows);

// Moves row `from` by `delta` places (negative is up), stopping at either end; returns the
// row's new position (the one the window highlights). An out-of-range `from` changes nothing
// and is returned as it is.
int MoveRow(std::vector<LfkRow>& rows, int from, int delta);

// The language names of "inps\LangNames.txt", one a line, blank lines skipped.
std::vector<std::u16string> LoadLanguageNames(const settings::DataFolders& folders);

// Every keymap file directly in the keymap folder whose name ends in ".txt" or ".xml" (compared in
// lower case), as a row named by the file name without its extension and without the
// "QuilomPlus-" every keymap file begins with; sorted by file name. A ".txt" file with "-Tamil-"
// right after those ten letters (a user's own Tamil scheme) is left out, as are files with fewer
// than three parts. The fourth column is left empty.
std::vector<LfkRow> InstalledLfks(const std::filesystem::path& keymapFolder);

}  // namespace quilom::translit
