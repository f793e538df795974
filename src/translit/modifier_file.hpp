#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "translit/data_file_notice.hpp"
#include "translit/keymap_file.hpp"

// The Tamil modifier file, mainDataFolder / "Tamil" / "xmods-Tamil-Unicode-PhoneticTransliteration.txt":
// the vowel table, the modifier character and the modifier pairs of the Tamil direct-typing
// schemes.
//
// Format (tabs read as blanks, fields split at single blanks, "#" lines are comments):
//   <Maps>                 vowel rows "key = vowel sign", e.g. "aa = ஆ ா"; a sign "-" means
//                          none (the row of "a"). The rows "#ee = ", "#oo = ", "#w = " at the
//                          start of a line become rows when the long ee/oo/w option is on.
//   <ModifierCharacter>    the next line's first character is the modifier character
//   <Mods>                 rows "sequence+marker = replacement": the last character of the
//                          first field ends the sequence and is not part of it
//   <ExtendMods>           the next line: the mode number (1 adds the derived pairs)
//
// Refused as not in order (the loader names the line): a vowel row or a modifier row that
// does not split into those fields, a thirtieth vowel row, a fifty-first pair in one column
// (derived pairs included), a sequence that starts above U+0BCD, a missing section marker
// and a mode that is not a number.
namespace quilom::translit {

struct VowelSignRow {
  std::u16string key;    // "a", "aa", "ee" ...
  std::u16string vowel;  // the independent vowel letter
  std::u16string sign;   // the dependent vowel sign, "" for "a"
};

struct ModifierTables {
  static constexpr int kMaxVowelRows = 29;
  static constexpr int kFirstColumnCode = 0x0B81;  // 2945
  static constexpr int kColumns = 77;              // U+0B81..U+0BCD
  static constexpr int kRows = 101;                // row 0 the count, then 50 pairs
  static constexpr int kMaxPairs = 50;

  std::vector<VowelSignRow> vowelSignMap = std::vector<VowelSignRow>(kMaxVowelRows + 1);  // rows 1..29
  int vowelSignCount = 0;
  int maxVowelKeyLength = 1;
  bool hasLongEe = false;
  bool hasLongOo = false;
  int modifierChar = 0;
  // Row-major, kRows x kColumns; row 0 holds each column's pair count as decimal text.
  std::vector<std::u16string> extendModsTable = std::vector<std::u16string>(kRows * kColumns);
  int maxExtendKeyLength = 1;
  int extendModsMode = 0;

  const std::u16string& Cell(int row, int column) const { return extendModsTable[row * kColumns + column]; }
  std::u16string& Cell(int row, int column) { return extendModsTable[row * kColumns + column]; }
  int PairCount(int column) const;
  // The k-th pair (1-based) of the column of `code` (U+0B81..U+0BCD).
  std::u16string_view Sequence(char16_t code, int k) const { return Cell(2 * k - 1, code - kFirstColumnCode); }
  std::u16string_view Replacement(char16_t code, int k) const { return Cell(2 * k, code - kFirstColumnCode); }
};

// The typing-settings switches the loader obeys.
struct ModifierLoadOptions {
  bool vowelSwitch = true;     // read the vowel rows
  bool modifierSwitch = true;  // read the modifier rows and derive pairs
  bool longEeOoW = false;      // turn the "#ee = ", "#oo = ", "#w = " rows on
};

std::optional<ModifierTables> ParseModifierFile(std::u16string_view text, const ModifierLoadOptions& options,
                                                DataFileProblem& problem);

std::filesystem::path ModifierFilePath(const std::filesystem::path& mainDataFolder);

// Loads into new tables and replaces `tables` only on success; see LoadPhoneticKeymap.
LoadOutcome LoadModifierFile(const std::filesystem::path& mainDataFolder, const ModifierLoadOptions& options,
                             std::shared_ptr<const ModifierTables>& tables,
                             const DataFileNotifier& notify = DefaultDataFileNotifier());

}  // namespace quilom::translit
