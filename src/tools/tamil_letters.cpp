#include "tools/tamil_letters.hpp"

#include <optional>

#include "tools/reverse_tables.hpp"

namespace quilom::tools {
namespace {

constexpr std::u16string_view kSri = u"\u0BB8\u0BCD\u0BB0\u0BC0";
constexpr char16_t kOm = u'\u0BD0';
constexpr char16_t kAuLengthMark = u'\u0BD7';

std::optional<int> ConsonantAt(std::u16string_view word, size_t pos, size_t& length) {
  const auto& consonants = Consonants();
  // க்ஷ must win over க followed by a pulli.
  for (int c = kConsonantCount - 1; c >= 0; --c) {
    const auto tamil = consonants[c].tamil;
    if (word.substr(pos, tamil.size()) == tamil) {
      length = tamil.size();
      return c;
    }
  }
  return std::nullopt;
}

// The vowel written after a consonant at `pos`, and how many characters it takes. Two-part
// signs are how some keyboards and older documents store ொ, ோ and ௌ.
std::optional<int> VowelSignAt(std::u16string_view word, size_t pos, size_t& length) {
  if (pos >= word.size()) return std::nullopt;
  if (pos + 1 < word.size()) {
    const char16_t first = word[pos];
    const char16_t second = word[pos + 1];
    length = 2;
    if (first == u'\u0BC6' && second == u'\u0BBE') return 10;
    if (first == u'\u0BC7' && second == u'\u0BBE') return 11;
    if (first == u'\u0BC6' && second == kAuLengthMark) return 12;
  }
  length = 1;
  return VowelOfSign(word[pos]);
}

std::optional<int> IndependentVowel(char16_t ch) {
  const auto& vowels = Vowels();
  for (int v = 0; v <= kVowelCount; ++v) {
    if (vowels[v].tamil[0] == ch) return v;
  }
  return std::nullopt;
}

std::u16string OtherCharacter(char16_t ch, const LetterOptions& options) {
  if (ch >= u'\u0BE6' && ch <= u'\u0BEF' && options.numerals) {
    return std::u16string(1, static_cast<char16_t>(u'0' + (ch - u'\u0BE6')));
  }
  if (ch >= u'\u0BF0' && ch <= u'\u0BF2' && options.numerals) {
    static constexpr std::u16string_view kPowers[] = {u"10", u"100", u"1000"};
    return std::u16string(kPowers[ch - u'\u0BF0']);
  }
  if (ch >= u'\u0BF3' && ch <= u'\u0BFA' && options.signs) {
    return std::u16string(ClericalSigns()[ch - u'\u0BF3']);
  }
  if (ch == kOm) return u"OM";
  return std::u16string(1, ch);
}

}  // namespace

std::vector<TamilLetter> SplitTamilLetters(std::u16string_view word, const LetterOptions& options) {
  std::vector<TamilLetter> letters;
  size_t pos = 0;
  while (pos < word.size()) {
    TamilLetter letter;
    size_t length = 0;
    if (word.substr(pos, kSri.size()) == kSri) {
      letter.text = u"Sri";
      pos += kSri.size();
    } else if (auto consonant = ConsonantAt(word, pos, length)) {
      pos += length;
      letter.consonant = *consonant;
      if (pos < word.size() && word[pos] == kPulli) {
        letter.kind = TamilLetter::Kind::Dead;
        ++pos;
      } else if (auto vowel = VowelSignAt(word, pos, length)) {
        letter.kind = TamilLetter::Kind::Syllable;
        letter.vowel = *vowel;
        pos += length;
      } else {
        letter.kind = TamilLetter::Kind::Syllable;
        letter.vowel = 1;
      }
    } else if (auto vowel = IndependentVowel(word[pos])) {
      letter.kind = TamilLetter::Kind::Vowel;
      letter.vowel = *vowel;
      ++pos;
    } else {
      letter.text = OtherCharacter(word[pos], options);
      ++pos;
    }
    letters.push_back(std::move(letter));
  }
  return letters;
}

}  // namespace quilom::tools
