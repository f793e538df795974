#include "tools/reverse_tables.hpp"

namespace quilom::tools {

const std::array<LetterSpelling, kConsonantCount>& Consonants() {
  static const std::array<LetterSpelling, kConsonantCount> table = {{
      {u"\u0B95", u"k"},  {u"\u0B99", u"ng"}, {u"\u0B9A", u"ch"}, {u"\u0B9E", u"gn"},
      {u"\u0B9F", u"t"},  {u"\u0BA3", u"N"},  {u"\u0BA4", u"dh"}, {u"\u0BA8", u"n"},
      {u"\u0BAA", u"p"},  {u"\u0BAE", u"m"},  {u"\u0BAF", u"y"},  {u"\u0BB0", u"r"},
      {u"\u0BB2", u"l"},  {u"\u0BB5", u"v"},  {u"\u0BB4", u"zh"}, {u"\u0BB3", u"L"},
      {u"\u0BB1", u"R"},  {u"\u0BA9", u"n"},  {u"\u0B9C", u"j"},  {u"\u0BB7", u"sh"},
      {u"\u0BB8", u"S"},  {u"\u0BB9", u"h"},  {u"\u0B95\u0BCD\u0BB7", u"ksh"}, {u"\u0BB6", u"Ss"},
  }};
  return table;
}

const std::array<LetterSpelling, kVowelCount + 1>& Vowels() {
  static const std::array<LetterSpelling, kVowelCount + 1> table = {{
      {u"\u0B83", u"q"},
      {u"\u0B85", u"a"}, {u"\u0B86", u"aa"}, {u"\u0B87", u"i"}, {u"\u0B88", u"ee"},
      {u"\u0B89", u"u"}, {u"\u0B8A", u"oo"}, {u"\u0B8E", u"e"}, {u"\u0B8F", u"E"},
      {u"\u0B90", u"ai"}, {u"\u0B92", u"o"}, {u"\u0B93", u"O"}, {u"\u0B94", u"ow"},
  }};
  return table;
}

const std::array<std::u16string_view, 8>& ClericalSigns() {
  static const std::array<std::u16string_view, 8> table = {
      u"day", u"month", u"year", u"debit", u"credit", u"as above", u"rupee", u"number"};
  return table;
}

namespace {

// Vowel signs of vowels 1..12; vowel 1 is inherent in the bare consonant.
constexpr std::array<char16_t, kVowelCount + 1> kSigns = {
    0, 0, u'\u0BBE', u'\u0BBF', u'\u0BC0', u'\u0BC1', u'\u0BC2',
    u'\u0BC6', u'\u0BC7', u'\u0BC8', u'\u0BCA', u'\u0BCB', u'\u0BCC'};

}  // namespace

std::u16string_view VowelSign(int vowel) {
  if (vowel < 2 || vowel > kVowelCount) return {};
  return std::u16string_view(&kSigns[vowel], 1);
}

std::optional<int> VowelOfSign(char16_t sign) {
  for (int vowel = 2; vowel <= kVowelCount; ++vowel) {
    if (kSigns[vowel] == sign) return vowel;
  }
  return std::nullopt;
}

ReverseTables::ReverseTables() {
  const auto& consonants = Consonants();
  const auto& vowels = Vowels();
  for (int c = 0; c < kConsonantCount; ++c) {
    deadTamil_[c] = std::u16string(consonants[c].tamil) + kPulli;
    deadLatin_[c] = std::u16string(consonants[c].latin);
    dead_[c] = {deadTamil_[c], deadLatin_[c]};
    for (int v = 1; v <= kVowelCount; ++v) {
      gridTamil_[v - 1][c] = std::u16string(consonants[c].tamil) + std::u16string(VowelSign(v));
      gridLatin_[v - 1][c] = std::u16string(consonants[c].latin) + std::u16string(vowels[v].latin);
      grid_[v - 1][c] = {gridTamil_[v - 1][c], gridLatin_[v - 1][c]};
    }
  }
}

const ReverseTables& Tables() {
  static const ReverseTables tables;
  return tables;
}

}  // namespace quilom::tools
