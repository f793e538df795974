#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// The in-memory tables of one phonetic keymap, as the engine matches against them.
namespace quilom::translit {

// Character codes that FirstCharIndex and PunctuationOutputs cover (141 slots).
inline constexpr int kFirstIndexedCode = 32;
inline constexpr int kLastIndexedCode = 172;
inline constexpr int kIndexedCodeCount = kLastIndexedCode - kFirstIndexedCode + 1;

// How the loader and the engine treat a keymap. The numbering follows the typing settings:
//   0        plain phonetic: the keymap is used exactly as written (the Tamil phonetic scheme);
//   1        joined-script phonetic: outputs lose a trailing modifier character, punctuation
//            slots are filled and the engine applies the language's output adjustment;
//   2 to 5   the direct-typing schemes (Tamil99 and the like): treated as 0 by these rules.
inline bool UsesJoiningRules(int typingMode) { return typingMode == 1; }

// The per-language values of the engine's output adjustment. They live in the keymap file
// itself, on a line "<joining>switch text low-high low-high</joining>" outside the entries
// (see keymap_file.hpp), so that a language's scheme carries its own values; a keymap
// without that line has the switch off.
struct LanguageJoining {
  bool joiningSwitch = false;
  std::u16string joiningText;  // typed before a dependent sign, and in the punctuation edit
  char16_t firstRangeLow = 0, firstRangeHigh = 0;
  char16_t secondRangeLow = 0, secondRangeHigh = 0;

  // True for the characters that must join the text before them: the two ranges and the
  // three fixed signs every language shares.
  bool Joins(char16_t ch) const {
    return (ch >= firstRangeLow && ch <= firstRangeHigh && firstRangeHigh != 0) ||
           (ch >= secondRangeLow && ch <= secondRangeHigh && secondRangeHigh != 0) || ch == 0x09F0 || ch == 0x09F1 ||
           ch == 0x0B71;
  }
};

// The four parallel arrays are 1-based: element 0 of each holds " " and is never matched.
// `phoneticKeys` and `phoneticOutputs` are sorted ascending by UTF-16 code units (equal keys
// keep their file order, so the first of two duplicates wins); `phoneticKeysRaw` and
// `phoneticOutputsWide` stay in file order.
struct PhoneticKeymap {
  std::u16string schemeName;
  std::vector<std::u16string> phoneticKeys{u" "};
  std::vector<std::u16string> phoneticOutputs{u" "};
  std::vector<std::u16string> phoneticKeysRaw{u" "};
  // The output with each code unit below 256 read as a byte of the system code page, for
  // keymaps written in a legacy single-byte form; Unicode keymaps see their output unchanged.
  std::vector<std::u16string> phoneticOutputsWide{u" "};

  // Row c - 32: first and last sorted position of the keys whose first character is the
  // system code page's character of code c; {0, 0} when none. Row 32 (the blank) stays 0.
  std::array<std::array<std::int32_t, 2>, kIndexedCodeCount> firstCharIndex{};

  // Slot c - 32 for the punctuation and digit keys (33-64, 91-96, 123-126, 172): in typing
  // mode 1, the distinct first two characters of every key of two or more characters that
  // begins with c, separated by blanks (keys never hold a blank); "" otherwise.
  std::array<std::u16string, kIndexedCodeCount> punctuationOutputs{};

  LanguageJoining joining;

  // The Unicode character of codes 128..172 in the code page the index was built with, so
  // that the engine maps a typed character to its row without asking the code page again.
  std::array<char16_t, kLastIndexedCode - 127> highCodeChars{};

  int EntryCount() const { return static_cast<int>(phoneticKeys.size()) - 1; }

  // The FirstCharIndex row of `ch`, or -1 when the character has no code in 32..172.
  int IndexRow(char16_t ch) const {
    if (ch >= kFirstIndexedCode && ch < 128) return ch - kFirstIndexedCode;
    for (size_t i = 0; i < highCodeChars.size(); ++i) {
      if (highCodeChars[i] == ch) return static_cast<int>(128 + i) - kFirstIndexedCode;
    }
    return -1;
  }
};

}  // namespace quilom::translit
