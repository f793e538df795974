#pragma once

#include <string>
#include <string_view>

#include "settings/data_folders.hpp"

// What the auto transliterator's windows show and read, apart from the conversion itself.
namespace quilom::tools {

inline constexpr std::u16string_view kAutoTransliteratorModule = u"Auto Transliterator";
inline constexpr std::u16string_view kStandardPhoneticKeymap = u"Tamil-Unicode-PhoneticTransliteration";

// The "Alternate mappings" tick menu chooses, for the conversions that follow, the keymap that
// the main typing window offers as the user's own phonetic scheme instead of the standard one.
// The user edits that keymap's file to spell words their own way, and the tick lets them run a
// whole text through it without switching the main window's typing keymap. The tick lasts as
// long as the window; the window's "Settings.txt" has no key for it.
inline constexpr std::u16string_view kAlternatePhoneticKeymap = u"Tamil-Unicode-UserDefinedPhonetics1";

std::u16string_view AutoKeymapFor(bool alternateMappings);

// percent + "% processed".
std::u16string AutoProgressText(int percent);

// "Input characters  = " n "  |  " "Output characters = " m, on one line; UTF-16 code units.
std::u16string AutoCharacterCountsText(std::size_t inputLength, std::size_t outputLength);

// "inps\sample-for-at.txt" of the "Auto Transliterator" module folder; when that folder has
// none, the main data folder's copy. Read whole; "" (reported by the reader) when neither is there.
std::u16string LoadAutoTransliterationSample(const settings::DataFolders& folders);

}  // namespace quilom::tools
