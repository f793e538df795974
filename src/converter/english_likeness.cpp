#include "converter/english_likeness.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace quilom::converter {
namespace {

// For each first letter, the letters that follow it at least three times in about 14,000 words
// of English prose: what is missing here is rare in English and common in legacy Tamil codes.
constexpr std::array<std::u16string_view, 26> kFollowers = {u"bcdfgiklmnpqrstuvxy",
                                                            u"aeijlnorsuy",
                                                            u"abcehikloprstuwy",
                                                            u"adegilmnoprsuy",
                                                            u"abcdefgilmnopqrstuvwxy",
                                                            u"aefilortuy",
                                                            u"aceghilnorstu",
                                                            u"aeimortuy",
                                                            u"abcdefglmnoprstvxz",
                                                            u"eos",
                                                            u"aefilmsu",
                                                            u"adeilopstuy",
                                                            u"abeilmopsuy",
                                                            u"acdefgiklmnopstuvy",
                                                            u"abcdefgijklmnoprstuvwxy",
                                                            u"acdehiloprstuy",
                                                            u"lu",
                                                            u"abcdefgiklmnoprstuvwy",
                                                            u"acefhiklnopqstuwy",
                                                            u"acefhiloprstuwy",
                                                            u"abcdegilmnprst",
                                                            u"aeimop",
                                                            u"aehilnorsw",
                                                            u"aceipt",
                                                            u"aeimnopst",
                                                            u"aeo"};

// The words that make up a third of any English text; one of them settles a word's case.
constexpr std::u16string_view kCommonWords[] = {
    u"a",   u"an",   u"and",  u"are",  u"as",    u"at",    u"be",    u"been",  u"but",  u"by",   u"can",
    u"do",  u"for",  u"from", u"had",  u"has",   u"have",  u"he",    u"her",   u"his",  u"i",    u"if",
    u"in",  u"is",   u"it",   u"its",  u"my",    u"no",    u"not",   u"of",    u"on",   u"or",   u"our",
    u"she", u"so",   u"that", u"the",  u"their", u"them",  u"then",  u"there", u"they", u"this", u"to",
    u"up",  u"was",  u"we",   u"were", u"what",  u"when",  u"which", u"who",   u"will", u"with", u"would",
    u"you", u"your", u"all",  u"one",  u"out",   u"about", u"into",  u"more",  u"some", u"than", u"very"};

bool IsSeparator(char16_t ch) { return ch == u' ' || ch == u'\t' || ch == u'\r' || ch == u'\n'; }
bool IsLower(char16_t ch) { return ch >= u'a' && ch <= u'z'; }
bool IsUpper(char16_t ch) { return ch >= u'A' && ch <= u'Z'; }
bool IsLetter(char16_t ch) { return IsLower(ch) || IsUpper(ch); }
char16_t Lower(char16_t ch) { return IsUpper(ch) ? static_cast<char16_t>(ch - u'A' + u'a') : ch; }
bool IsVowel(char16_t ch) { return std::u16string_view(u"aeiouy").find(Lower(ch)) != std::u16string_view::npos; }

// What prose puts before and after a word without being part of it. Not the semicolon: English
// seldom ends a word with one, legacy Tamil often does (the pulli of several encodings).
std::u16string_view Trimmed(std::u16string_view word) {
  constexpr std::u16string_view kOpening = u"\"'([\u2018\u201C";
  constexpr std::u16string_view kClosing = u".,:!?\"')]\u2019\u201D";
  while (!word.empty() && kOpening.find(word.front()) != std::u16string_view::npos) word.remove_prefix(1);
  while (!word.empty() && kClosing.find(word.back()) != std::u16string_view::npos) word.remove_suffix(1);
  return word;
}

bool IsApostrophe(char16_t ch) { return ch == u'\'' || ch == u'\u2019'; }

// What English writes after an apostrophe: "it's", "don't", "we'll", "they're", "I've", "I'd", "I'm".
bool IsContraction(std::u16string_view ending) {
  std::u16string lower;
  for (const char16_t ch : ending) lower.push_back(Lower(ch));
  return lower == u"s" || lower == u"t" || lower == u"ll" || lower == u"re" || lower == u"ve" || lower == u"d" ||
         lower == u"m";
}

// Letters, joined by hyphens or ended by a contraction; all lower case after the first letter,
// or all capitals ("the", "The", "THE", "don't", "well-known", but not "tHe" or "L'Weh").
bool HasEnglishShape(std::u16string_view word) {
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (IsLetter(word[i])) continue;
    const bool joins = i > 0 && i + 1 < word.size() && IsLetter(word[i - 1]) && IsLetter(word[i + 1]);
    if (!joins) return false;
    if (IsApostrophe(word[i]) && !IsContraction(word.substr(i + 1))) return false;
    if (!IsApostrophe(word[i]) && word[i] != u'-') return false;
  }
  return std::none_of(word.begin(), word.end(), IsLower) || std::none_of(word.begin() + 1, word.end(), IsUpper);
}

bool IsCommonWord(std::u16string_view word) {
  if (word.size() > 5) return false;
  std::array<char16_t, 5> lower{};
  std::transform(word.begin(), word.end(), lower.begin(), Lower);
  const std::u16string_view key(lower.data(), word.size());
  return std::find(std::begin(kCommonWords), std::end(kCommonWords), key) != std::end(kCommonWords);
}

// The share of the word's adjacent letters that English writes often, across a joiner too.
double FamiliarPairs(std::u16string_view word) {
  std::size_t pairs = 0, familiar = 0;
  char16_t before = 0;
  for (const char16_t ch : word) {
    if (!IsLetter(ch)) continue;
    if (before != 0) {
      ++pairs;
      familiar += kFollowers[Lower(before) - u'a'].find(Lower(ch)) != std::u16string_view::npos;
    }
    before = ch;
  }
  return pairs == 0 ? 1.0 : static_cast<double>(familiar) / static_cast<double>(pairs);
}

// A short word passes the shape and letter-pair tests by chance far more often than a long
// one (legacy "mit" and "fis" do), so unless it is a common word it is weaker evidence.
constexpr std::size_t kShortWord = 4;
constexpr double kShortWordWeight = 0.95;

double WordLikeness(std::u16string_view word) {
  if (!HasEnglishShape(word)) return 0;
  if (IsCommonWord(word)) return 1;
  if (std::none_of(word.begin(), word.end(), IsVowel)) return 0;
  return FamiliarPairs(word) * (word.size() <= kShortWord ? kShortWordWeight : 1.0);
}

bool IsNumber(std::u16string_view word) {
  return std::all_of(word.begin(), word.end(), [](char16_t ch) {
    return (ch >= u'0' && ch <= u'9') || ch == u'.' || ch == u',' || ch == u'-' || ch == u'%';
  });
}

}  // namespace

double EnglishLikeness(std::u16string_view text) {
  double weighed = 0, total = 0;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = start;
    while (end < text.size() && !IsSeparator(text[end])) ++end;
    const std::u16string_view word = Trimmed(text.substr(start, end - start));
    start = end + 1;
    if (word.empty() || IsNumber(word)) continue;
    weighed += WordLikeness(word) * static_cast<double>(word.size());
    total += static_cast<double>(word.size());
  }
  return total == 0 ? 0.0 : weighed / total;
}

}  // namespace quilom::converter
