#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/code_page.hpp"
#include "translit/data_file_notice.hpp"
#include "translit/phonetic_keymap.hpp"

// Phonetic keymap files: "QuilomPlus-" + scheme + ".xml" in the keymap folder.
//
// Format. Text, CR LF line ends (any encoding the file reader knows). The first line is a
// title and is never read as an entry. Every other line that holds "<om>" and, after it,
// "</om>" is one entry: the text between the markers is split at single blanks; the first
// field is the key, the remaining fields joined again by single blanks are the output, in
// which every "|`~`|" stands for a line feed. Lines without both markers are comments.
// One further line may carry the language's joining values (see LanguageJoining):
//   <joining>1 200D 0B82-0B83 0BBE-0BCD</joining>
// switch ("1" on), the joining text as hexadecimal code points joined by "+" ("-" for none),
// and two ranges of hexadecimal code points.
//
// Refused as not in order (the loader names the line): a marked line with "</om>" before
// "<om>", a marked line whose text has no blank after the key (an entry without output), a
// malformed joining line, and more than 32767 entries (the engine's positions are 16-bit).
namespace quilom::translit {

struct KeymapLoadOptions {
  int typingMode = 0;         // see UsesJoiningRules
  char16_t modifierChar = 0;  // the modifier file's ModifierChar; 0 for none
};

struct DataFileProblem {
  int lineNumber = 0;  // 1-based
  std::u16string reason;
};

// Builds the tables from a keymap file's whole text. Returns nothing and fills `problem` when
// the text is not in order. `codePage` decides which characters rows 128..172 of
// FirstCharIndex stand for.
std::optional<PhoneticKeymap> ParsePhoneticKeymap(std::u16string_view text, const KeymapLoadOptions& options,
                                                  const settings::CodePage& codePage, DataFileProblem& problem);

std::filesystem::path PhoneticKeymapPath(const std::filesystem::path& keymapFolder, std::u16string_view scheme);

enum class LoadOutcome { Loaded, Missing, Refused };

// Loads the scheme's file into new tables and, only on success, replaces `tables` with them
// (the engine keeps typing with the tables it holds until it is given the new ones). A
// missing file changes nothing and reports nothing; a file not in order changes nothing and
// is reported through `notify`; a file that cannot be read changes nothing and is reported
// by the file reader ("RFF"). Uses the system code page. Never throws.
LoadOutcome LoadPhoneticKeymap(const std::filesystem::path& keymapFolder, std::u16string_view scheme,
                               const KeymapLoadOptions& options, std::shared_ptr<const PhoneticKeymap>& tables,
                               const DataFileNotifier& notify = DefaultDataFileNotifier());

// The scheme names of the keymap files in the folder, sorted.
std::vector<std::u16string> InstalledKeymaps(const std::filesystem::path& keymapFolder);

}  // namespace quilom::translit
