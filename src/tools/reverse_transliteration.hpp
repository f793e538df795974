#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "tools/reverse_word_list.hpp"

// Reverse transliteration: Tamil Unicode text back to the Latin spelling that the phonetic
// keymap types. Listed whole words are replaced first (ReverseWordList); the remaining Tamil
// words are spelled letter by letter (SplitTamilLetters, SpellTamilLetters); everything else
// passes through unchanged.
namespace quilom::tools {

struct ReverseOptions {
  bool numerals = false;    // ௧௨ -> "12", ௰ ௱ ௲ -> "10" "100" "1000"
  bool signs = false;       // ௳ ... ௺ -> "day" ... "number"
  bool keepGraves = false;  // text between a pair of grave accents is kept as it stands
  // The tables spell ந and ன both "n", and "n" types ன. With this, ந is spelled "w", the key
  // that types it, except in ந்த where "ndh" already types ந; the output then types back to
  // the same Tamil.
  bool typeableNa = false;
};

// Called once per word before it is converted: `index` counts from 0 to `count` - 1.
using ReverseProgress = std::function<void(size_t index, size_t count)>;

// Words are the runs between blanks, tabs and line breaks; those separators are kept exactly,
// so the output has the input's layout. A word is Tamil when its first character, after any
// leading punctuation or quotation marks, lies in the Tamil block U+0B80..U+0BFF; other words
// (Latin, digits, mixed words that begin with another script) are copied as they stand.
//
// With keepGraves, and when the text holds two grave accents, text from a grave accent to the
// next one is copied unchanged, graves included, and is not touched by the word list either;
// an unpaired last grave accent is an ordinary character. An empty text gives "".
std::u16string ReverseTransliterate(std::u16string_view text, const ReverseOptions& options,
                                    const ReverseWordList& words, const ReverseProgress& progress = {});

// The window's texts.
inline constexpr std::u16string_view kPleaseWaitText = u"Please wait.....";
inline constexpr std::u16string_view kOptionTakesEffectText =
    u"This will take effect the next time you process the above Tamil text for 'reverse transliteration'";

// "100 %" CR LF "processed" for fewer than two words, else floor(index / (count - 1) * 100)
// followed by "% processed".
std::u16string ReverseProgressText(size_t index, size_t count);

// "Input characters  = " n CR LF "Output characters = " m; lengths in UTF-16 code units, as
// the boxes count them.
std::u16string ReverseCharacterCountsText(size_t inputLength, size_t outputLength);

// The menu commands on the output.
std::u16string RemoveGraveAccents(std::u16string_view output);
std::u16string OutputToLowerCase(std::u16string_view output);

// "inps/sample-for-rt.txt" below the main data folder, read whole ("" when missing, reported).
std::u16string LoadReverseSample(const std::filesystem::path& mainDataFolder);

}  // namespace quilom::tools
