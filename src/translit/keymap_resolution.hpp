#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "settings/data_folders.hpp"
#include "translit/data_file_notice.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"
#include "translit/modifier_file.hpp"
#include "translit/typing_settings.hpp"

// How the typing settings steer the keymap loaders. The loaders and the engine know nothing of
// the settings; these routines turn the settings into the file to load, the loader options and
// the adjustments made to a keymap's text before it is parsed.
//
// Decisions of this implementation:
// - "ConsecutiveAgaraUyirmeys" = "0" loads Tamil99 from the sub-folder
//   "ConsecutiveAgaraUyirmeys-0"; "chCh" = "1" loads every Indic phonetic scheme that has a file
//   in "chCh-1" from there. A variant whose file is missing falls back to the ordinary file.
// - A user's own Tamil phonetic scheme (a name other than "Tamil-Unicode-PhoneticTransliteration"
//   that begins with "Tamil" and holds "PhoneticTransliteration-" from its eighth character on)
//   is read from "QuilomPlus-" + name + ".txt" in the keymap folder.
// - "ExcludeH" = "1" leaves out, in the Tamil phonetic schemes, every entry whose key begins
//   with "h" (the letter ஹ and its syllables), so that a lone "h" no longer becomes ஹ; the
//   aspirate spellings "th", "dh", "sh", "zh" inside other keys are kept.
// - "TamilNumeralsConversion" = "1" makes the digit keys 0 to 9 type the Tamil digits ௦ to ௯ in
//   the Tamil phonetic schemes in Unicode (a legacy font's digits are its own glyphs, so those
//   schemes keep what their file says). Entries of the file for a lone digit give way.
// - "Extended scheme" ("qm-settings-2.ini") is the long ee/oo/w option of the modifier file.
//   "UseMyOwnKeyboardLayout" = "1" turns the vowel and the modifier switches off, so that the
//   keymap file is typed exactly as the user wrote it; otherwise both are on.
// - "Classic" = "1" turns the engine's punctuation rule on for the joined-script schemes of the
//   other languages (typing mode 1); "0" types punctuation after a consonant plainly.
namespace quilom::translit {

// The parts of an LFK name "Language-Encoding-Layout[-more]".
struct LfkName {
  std::u16string language;
  std::u16string encoding;
  std::u16string layout;  // everything after the second "-"
};
LfkName SplitLfkName(std::u16string_view name);

bool IsUserPhoneticScheme(std::u16string_view name);
// The Tamil phonetic schemes that ExcludeH and TamilNumeralsConversion act on.
bool IsTamilPhoneticScheme(std::u16string_view name);

// The file to load for the LFK `name` under `settings`.
std::filesystem::path KeymapPathFor(const settings::DataFolders& folders, const TypingSettings& settings,
                                    std::u16string_view name);

ModifierLoadOptions ModifierOptionsFor(const TypingSettings& settings);

// Typing mode: 0 for Tamil's phonetic schemes, 1 for the other languages' phonetic schemes
// (joined scripts), 2 for the Tamil direct-typing layouts (Tamil99, typewriters).
EngineSettings EngineSettingsFor(const TypingSettings& settings, std::u16string_view name);

// The keymap text with the ExcludeH and numeral adjustments applied for `name`; other schemes'
// text is returned as it is.
std::u16string AdjustKeymapText(std::u16string_view text, const TypingSettings& settings, std::u16string_view name);

// Loads the LFK's keymap as LoadPhoneticKeymap does (tables replaced only on success, a missing
// file changes nothing), from KeymapPathFor and with AdjustKeymapText applied.
LoadOutcome LoadKeymapForSettings(const settings::DataFolders& folders, const TypingSettings& settings,
                                  std::u16string_view name, std::shared_ptr<const PhoneticKeymap>& tables,
                                  const DataFileNotifier& notify = DefaultDataFileNotifier());

}  // namespace quilom::translit
