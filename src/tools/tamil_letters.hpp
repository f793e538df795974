#pragma once

#include <string>
#include <string_view>
#include <vector>

// A Tamil word cut into the letters that reverse transliteration spells one by one.
namespace quilom::tools {

struct TamilLetter {
  enum class Kind {
    Syllable,  // consonant with vowel 1..12 (1 is the bare consonant with its inherent "a")
    Dead,      // consonant + pulli
    Vowel,     // independent vowel 1..12, or 0 for the aytham
    Other,     // anything else: `text` is what the letter pass writes for it
  };
  Kind kind = Kind::Other;
  int consonant = -1;  // 0..23 in the consonant table's order, for Syllable and Dead
  int vowel = 0;
  std::u16string text;  // the source characters for Other (numerals and signs already applied)
};

struct LetterOptions {
  bool numerals = false;  // Tamil digits and ten/hundred/thousand as Arabic numerals
  bool signs = false;     // day/month/year and clerical signs as English words
  bool typeableNa = false;  // see ReverseOptions::typeableNa
};

// Cuts `word` into letters. Precomposed and two-part vowel signs (ெ + ா, ே + ா, ெ + ௗ) are both
// understood. ஸ்ரீ becomes "Sri" and ௐ "OM" (kind Other). A vowel sign or pulli with no consonant
// before it is kept as it stands.
std::vector<TamilLetter> SplitTamilLetters(std::u16string_view word, const LetterOptions& options);

}  // namespace quilom::tools
