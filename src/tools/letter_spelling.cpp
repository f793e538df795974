#include "tools/letter_spelling.hpp"

#include <string_view>

#include "tools/reverse_tables.hpp"

namespace quilom::tools {
namespace {

// Positions in the consonant table.
enum Consonant : int {
  kKa = 0, kNga = 1, kCa = 2, kNya = 3, kTta = 4, kNna = 5, kTa = 6, kNa = 7, kPa = 8, kMa = 9,
  kYa = 10, kRa = 11, kLa = 12, kVa = 13, kLlla = 14, kLla = 15, kRra = 16, kNnna = 17,
};

using Kind = TamilLetter::Kind;

struct Context {
  const std::vector<TamilLetter>& letters;
  size_t index;
  bool typeableNa;

  const TamilLetter& self() const { return letters[index]; }
  const TamilLetter* previous() const { return index > 0 ? &letters[index - 1] : nullptr; }
  const TamilLetter* next() const { return index + 1 < letters.size() ? &letters[index + 1] : nullptr; }
  bool AtWordStart() const { return index == 0; }
  bool HasVowel() const { return self().kind == Kind::Syllable; }
  bool AfterVowel() const {
    const auto* p = previous();
    return p && (p->kind == Kind::Syllable || (p->kind == Kind::Vowel && p->vowel > 0));
  }
  bool AfterDead(int consonant) const {
    const auto* p = previous();
    return p && p->kind == Kind::Dead && p->consonant == consonant;
  }
  bool BeforeConsonant(int consonant) const {
    const auto* n = next();
    return n && (n->kind == Kind::Syllable || n->kind == Kind::Dead) && n->consonant == consonant;
  }
};

std::u16string_view KaSpelling(const Context& c) {
  return c.HasVowel() && c.AfterVowel() ? u"g" : u"k";
}

std::u16string_view CaSpelling(const Context& c) {
  if (c.HasVowel() && (c.AtWordStart() || c.AfterVowel())) return u"s";
  return u"ch";
}

std::u16string_view TtaSpelling(const Context& c) {
  if (c.self().kind == Kind::Dead && c.BeforeConsonant(kRa)) return u"d";  // "tr" types ற்ற
  return c.HasVowel() && (c.AfterVowel() || c.AfterDead(kNna)) ? u"d" : u"t";
}

std::u16string_view TaSpelling(const Context& c) {
  if (c.AfterDead(kNa) || c.AfterDead(kYa)) return u"dh";
  if (c.AfterVowel() && c.HasVowel()) return u"dh";
  return u"th";
}

std::u16string_view RraSpelling(const Context& c) {
  if (c.self().kind == Kind::Dead && c.BeforeConsonant(kRra)) return u"t";
  if (c.AfterDead(kRra)) return u"r";
  if (c.AfterDead(kNnna)) return u"dr";
  return u"R";
}

std::u16string_view ConsonantSpelling(const Context& c) {
  switch (c.self().consonant) {
    case kKa: return KaSpelling(c);
    case kCa: return CaSpelling(c);
    case kNya: return c.self().kind == Kind::Dead && c.BeforeConsonant(kCa) ? u"nj" : u"gn";
    case kTta: return TtaSpelling(c);
    case kTa: return TaSpelling(c);
    case kPa: return c.AfterDead(kMa) ? u"b" : u"p";
    case kNa: return c.typeableNa && !(c.self().kind == Kind::Dead && c.BeforeConsonant(kTa)) ? u"w" : u"n";
    case kRra: return RraSpelling(c);
    default: return Consonants()[c.self().consonant].latin;
  }
}

bool IsAytham(const TamilLetter& letter) { return letter.kind == Kind::Vowel && letter.vowel == 0; }

}  // namespace

std::u16string SpellTamilLetters(const std::vector<TamilLetter>& letters, bool typeableNa) {
  std::u16string latin;
  for (size_t i = 0; i < letters.size(); ++i) {
    const TamilLetter& letter = letters[i];
    const Context context{letters, i, typeableNa};
    switch (letter.kind) {
      case Kind::Syllable:
      case Kind::Dead: {
        const bool isF = letter.consonant == kPa && i > 0 && IsAytham(letters[i - 1]);
        const std::u16string_view consonant = isF ? u"f" : ConsonantSpelling(context);
        if (consonant != Consonants()[letter.consonant].latin) {
          latin += consonant;
          if (letter.kind == Kind::Syllable) latin += Vowels()[letter.vowel].latin;
        } else if (letter.kind == Kind::Syllable) {
          latin += Tables().Syllable(letter.vowel, letter.consonant).latin;
        } else {
          latin += Tables().Dead(letter.consonant).latin;
        }
        break;
      }
      case Kind::Vowel: {
        const auto* next = context.next();
        const bool beforeF = letter.vowel == 0 && next && next->kind != Kind::Vowel && next->kind != Kind::Other &&
                             next->consonant == kPa;
        if (!beforeF) latin += Vowels()[letter.vowel].latin;
        break;
      }
      case Kind::Other:
        latin += letter.text;
        break;
    }
  }
  return latin;
}

}  // namespace quilom::tools
