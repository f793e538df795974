#pragma once

#include <string>
#include <vector>

#include "tools/tamil_letters.hpp"

// Spells a word's letters in Latin. The tables give every letter one spelling; the rules here
// change a consonant's spelling by its neighbours so that common words read the way Tamil
// speakers write them in Latin, while every result still types back to the same Tamil through
// the phonetic keymap:
//   க   "g" between vowels (magan), else "k" (kakkam, thangkam)
//   ச   "s" at the start of a word and between vowels (seidhi, pasi); "ch" after a consonant
//       (pachchai, katchi) and when dead
//   ஞ   "nj" before ச (manjchaL), else "gn"
//   ட   "d" between vowels and after ண் (padam, vaNdi), else "t" (pattam); ட்ர is "dr"
//       (pedrOl), since "tr" is ற்ற
//   த   "th" at the start of a word, when doubled and after most consonants (thamizh, paththu,
//       vaarththai); "dh" between vowels and after ந் and ய் (adhu, vandhaan, seydhi)
//   ப   "b" after ம் (thambi), else "p"
//   ஃப  "f" (the aytham before ப is how Tamil writes f)
//   ற்ற "tr" (kaatru) and ன்ற "ndr" (endru, nandri); a lone ற stays "R"
//   ந   "n" as the tables have it; with `typeableNa`, "w" except before த (ndh)
// A rule never joins two letters into a spelling that the keymap reads as one other letter
// (n + g, g + n, n + j, s + h ...): where it could, the table spelling is kept. One join has
// no way round it: ன்த is spelled "nth", which the keymap types as ந்த.
namespace quilom::tools {

std::u16string SpellTamilLetters(const std::vector<TamilLetter>& letters, bool typeableNa = false);

}  // namespace quilom::tools
