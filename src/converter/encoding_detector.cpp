#include "converter/encoding_detector.hpp"

#include <algorithm>
#include <cmath>

#include "converter/convert_checks.hpp"
#include "converter/encoding_list.hpp"

namespace quilom::converter {
namespace {

// Penalties, in characters' worth of Tamil: a misplaced sign costs more than it earns.
constexpr double kBrokenSign = 3.0;
constexpr double kVowelInsideWord = 2.0;
constexpr double kUnlikelyOpening = 0.7;
constexpr double kMixedScript = 2.0;
constexpr double kLeftover = 1.5;
// How sharply a score lead turns into confidence, per letter of the text.
constexpr double kSharpness = 0.6;

bool IsTamil(char16_t ch) { return ch >= 0x0B80 && ch <= 0x0BFF; }
bool IsConsonant(char16_t ch) { return ch >= 0x0B95 && ch <= 0x0BB9; }
bool IsVowel(char16_t ch) { return ch >= 0x0B85 && ch <= 0x0B94; }
bool IsSign(char16_t ch) { return (ch >= 0x0BBE && ch <= 0x0BCD) || ch == 0x0BD7; }
bool IsLatinLetter(char16_t ch) { return (ch >= u'a' && ch <= u'z') || (ch >= u'A' && ch <= u'Z'); }
bool IsSeparator(char16_t ch) { return ch == u' ' || ch == u'\t' || ch == u'\r' || ch == u'\n'; }

// Punctuation and digits that Tamil text uses as they are.
bool IsPlainPunctuation(char16_t ch) {
  return std::u16string_view(u".,;:!?'\"()-0123456789\u2018\u2019\u201C\u201D").find(ch) != std::u16string_view::npos;
}

// Letters that open no native Tamil word.
bool IsUnlikelyOpening(char16_t ch) {
  return std::u16string_view(u"\u0B99\u0B9E\u0BA3\u0BA9\u0BB4\u0BB3\u0BB1\u0B9F").find(ch) != std::u16string_view::npos;
}

struct WordScore {
  double tamil = 0;
  double penalty = 0;
  double letters = 0;
};

void ScoreWord(std::u16string_view word, WordScore& score) {
  for (std::size_t i = 0; i < word.size(); ++i) {
    const char16_t ch = word[i];
    const char16_t before = i > 0 ? word[i - 1] : u'\0';
    if (!IsTamil(ch)) {
      if (IsLatinLetter(ch)) {
        score.letters += 1;
        if (IsTamil(before) || (i + 1 < word.size() && IsTamil(word[i + 1]))) score.penalty += kMixedScript;
      } else if (!IsPlainPunctuation(ch)) {
        score.letters += 1;
        score.penalty += kLeftover;
      }
      continue;
    }
    score.letters += 1;
    score.tamil += 1;
    if (IsSign(ch) && !IsConsonant(before)) score.penalty += kBrokenSign;
    if (IsVowel(ch) && IsTamil(before)) score.penalty += kVowelInsideWord;
    if (ch == 0x0B83 && !(i + 1 < word.size() && IsConsonant(word[i + 1]))) score.penalty += kBrokenSign;
    const bool opening = !IsTamil(before);
    if (opening && IsUnlikelyOpening(ch)) score.penalty += kUnlikelyOpening;
    if (opening && IsConsonant(ch) && i + 1 < word.size() && word[i + 1] == 0x0BCD) score.penalty += kUnlikelyOpening;
  }
}

WordScore ScoreText(std::u16string_view text) {
  WordScore total;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = start;
    while (end < text.size() && !IsSeparator(text[end])) ++end;
    ScoreWord(text.substr(start, end - start), total);
    start = end + 1;
  }
  return total;
}

// Cuts at a separator so that no syllable is split.
std::u16string_view Sample(std::u16string_view text, std::size_t limit) {
  if (text.size() <= limit) return text;
  const std::size_t cut = text.find_last_of(u" \r\n\t", limit);
  return text.substr(0, cut == std::u16string_view::npos || cut == 0 ? limit : cut);
}

void AssignConfidence(std::vector<EncodingGuess>& guesses, double letters) {
  if (guesses.empty()) return;
  const double best = guesses.front().score;
  const double sharpness = kSharpness * std::max(letters, 1.0);
  double sum = 0;
  for (EncodingGuess& guess : guesses) {
    guess.confidence = std::exp((guess.score - best) * sharpness);
    sum += guess.confidence;
  }
  for (EncodingGuess& guess : guesses) guess.confidence /= sum;
}

}  // namespace

double TamilWellFormedness(std::u16string_view unicodeText) {
  const WordScore score = ScoreText(unicodeText);
  return score.letters == 0 ? 0.0 : (score.tamil - score.penalty) / score.letters;
}

EncodingDetector EncodingDetector::Load(const std::filesystem::path& converterFolder) {
  EncodingDetector detector;
  const EncodingList list = LoadEncodingList(converterFolder);
  for (std::size_t position = 1; position < list.names.size(); ++position) {
    const std::optional<int> id = LegacyToUnicodeTableId(static_cast<int>(position), true);
    if (!id) continue;
    const std::u16string table = LoadTableText(converterFolder, *id);
    if (table.empty()) continue;
    detector.candidates_.push_back({static_cast<int>(position), list.names[position],
                                    std::make_shared<PairReplacer>(ParseConversionTable(table).pairs)});
  }
  return detector;
}

std::vector<EncodingGuess> EncodingDetector::Rank(std::u16string_view text, std::size_t sampleLimit) const {
  const std::u16string_view sample = Sample(text, sampleLimit);
  std::vector<EncodingGuess> guesses;
  double letters = 0;
  for (const Candidate& candidate : candidates_) {
    const WordScore score = ScoreText(candidate.replacer->Apply(sample));
    letters = std::max(letters, score.letters);
    const double value = score.letters == 0 ? 0.0 : (score.tamil - score.penalty) / score.letters;
    guesses.push_back({candidate.position, candidate.name, value, 0});
  }
  // Equal scores keep list order, so the answer never depends on the sort's whims.
  std::stable_sort(guesses.begin(), guesses.end(),
                   [](const EncodingGuess& a, const EncodingGuess& b) { return a.score > b.score; });
  AssignConfidence(guesses, letters);
  return guesses;
}

}  // namespace quilom::converter
