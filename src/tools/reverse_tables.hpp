#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

// The fixed letter tables of reverse transliteration (Tamil Unicode back to the Latin keys of
// the phonetic keymap). The tables are parallel: consonant i, its dead form and column i of the
// syllable grid all describe the same letter.
namespace quilom::tools {

inline constexpr int kConsonantCount = 24;
inline constexpr int kVowelCount = 12;  // vowels 1..12; index 0 of the vowel table is the aytham
inline constexpr char16_t kPulli = u'\u0BCD';

struct LetterSpelling {
  std::u16string_view tamil;
  std::u16string_view latin;
};

// Consonants in table order: க ங ச ஞ ட ண த ந ப ம ய ர ல வ ழ ள ற ன ஜ ஷ ஸ ஹ க்ஷ ஶ.
// க்ஷ is the only two-letter entry.
const std::array<LetterSpelling, kConsonantCount>& Consonants();

// Index 0 is ஃ ("q"); 1..12 are the independent vowels அ ஆ இ ஈ உ ஊ எ ஏ ஐ ஒ ஓ ஔ.
const std::array<LetterSpelling, kVowelCount + 1>& Vowels();

// "day" ... "number" for U+0BF3..U+0BFA.
const std::array<std::u16string_view, 8>& ClericalSigns();

// The vowel sign of vowel 2..12 (ா ... ௌ); vowel 1 (the inherent "a") has none and gives u"".
std::u16string_view VowelSign(int vowel);

// Vowel 2..12 for a precomposed vowel sign, or nothing for any other character.
std::optional<int> VowelOfSign(char16_t sign);

// The grid the letter pass reads from: for every consonant its dead form (consonant + pulli,
// spelled by the consonant alone) and its twelve syllables (row = vowel 1..12, spelled
// consonant then vowel; the bare consonant is row 1 and carries the inherent "a").
class ReverseTables {
 public:
  ReverseTables();
  const LetterSpelling& Dead(int consonant) const { return dead_[consonant]; }
  const LetterSpelling& Syllable(int vowel, int consonant) const { return grid_[vowel - 1][consonant]; }

 private:
  std::array<std::u16string, kConsonantCount> deadTamil_;
  std::array<std::u16string, kConsonantCount> deadLatin_;
  std::array<std::array<std::u16string, kConsonantCount>, kVowelCount> gridTamil_;
  std::array<std::array<std::u16string, kConsonantCount>, kVowelCount> gridLatin_;
  std::array<LetterSpelling, kConsonantCount> dead_;
  std::array<std::array<LetterSpelling, kConsonantCount>, kVowelCount> grid_;
};

// Built once, on first use.
const ReverseTables& Tables();

}  // namespace quilom::tools
