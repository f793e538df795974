#include "converter/encoding_detector.hpp"

#include <algorithm>
#include <cmath>

#include "converter/convert_checks.hpp"
#include "converter/encoding_list.hpp"
#include "converter/english_likeness.hpp"
#include "converter/legacy_bytes.hpp"
#include "text/text_input.hpp"

namespace quilom::converter {
namespace {

// Penalties, in characters' worth of Tamil: a misplaced sign costs more than it earns.
constexpr double kBrokenSign = 3.0;
constexpr double kVowelInsideWord = 2.0;
constexpr double kUnlikelyOpening = 0.7;
constexpr double kMixedScript = 2.0;
constexpr double kLeftover = 1.5;
constexpr double kBadCluster = 2.0;
// Grantha letters are real but rare: between two readings otherwise alike, the one with fewer
// of them is the likelier.
constexpr double kGranthaLetter = 1.0;
constexpr double kRareSyllable = 1.0;
constexpr double kDeadShareFrom = 15;  // consonants, before the share is trusted
constexpr double kLeastDeadShare = 0.08;
constexpr double kFewDeadPenalty = 0.5;
constexpr double kTamilFloor = 0.8;
// English sentences score 0.85 and more, legacy Tamil sentences 0.2 at most. A tie goes to
// English: with 25 encodings to try, some reads almost any short English text as flawless
// Tamil, while legacy Tamil, with its capitals and punctuation inside words, seldom reads as
// English at all (and its short words that do score a little below 1 as English).
constexpr double kEnglishFloor = 0.5;
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

constexpr char16_t kPulli = 0x0BCD;

bool IsGrantha(char16_t ch) { return ch == 0x0B9C || (ch >= 0x0BB6 && ch <= 0x0BB9); }

// The consonants a native word lets follow a dead consonant, and whether it may end a word.
struct ClusterRule {
  char16_t dead;
  std::u16string_view next;
  bool mayEndWord;
};

constexpr ClusterRule kClusterRules[] = {
    {u'க', u"க", true},     {u'ங', u"க", false},        {u'ச', u"ச", true},       {u'ஞ', u"சஞ", false},
    {u'ட', u"டகசப", false}, {u'ண', u"டணகசபமயவ", true},  {u'த', u"த", true},       {u'ந', u"தந", false},
    {u'ப', u"ப", true},     {u'ம', u"பமகசதநயவ", true},  {u'ய', u"", true},        {u'ர', u"", true},
    {u'ழ', u"", true},      {u'ல', u"கசபலயவம", true},   {u'ள', u"கசபளயவம", true}, {u'வ', u"வ", false},
    {u'ற', u"றகசப", false}, {u'ன', u"றனகசபமயவத", true},
};

// Penalty for the dead consonant at `i` (a consonant with pulli) by what follows it. An empty
// `next` list lets any consonant follow.
double ClusterPenalty(std::u16string_view word, std::size_t i) {
  const char16_t dead = word[i];
  const std::size_t after = i + 2;
  if (IsGrantha(dead) || (after < word.size() && IsGrantha(word[after]))) return 0;
  for (const ClusterRule& rule : kClusterRules) {
    if (rule.dead != dead) continue;
    if (after >= word.size() || !IsTamil(word[after])) return rule.mayEndWord ? 0 : kBadCluster;
    if (!IsConsonant(word[after])) return kBadCluster;
    return rule.next.empty() || rule.next.find(word[after]) != std::u16string_view::npos ? 0 : kBadCluster;
  }
  return 0;
}

// What opening a word with each vowel costs: the log of how much rarer the vowel is at a word's
// start than அ, the commonest (shares of words opening with each vowel, counted over a Tamil
// dictionary: அ 7%, உ 3.7%, இ 3.1%, ஆ 2%, ஒ 1.7%, எ 1.6%, ஏ 0.8%, ஊ 0.7%, ஓ 0.6%, ஈ 0.4%,
// ஐ 0.2%, ஔ almost none). Encodings that differ only in their vowel glyphs read the same text
// with the short vowels or with the long ones; only these shares tell the readings apart.
double RareVowelPenalty(char16_t vowel) {
  constexpr double kWeight = 0.25;
  constexpr double kShares[] = {7.0, 2.0, 3.1, 0.4, 3.7, 0.7, 0, 0, 0, 1.6, 0.8, 0.2, 0, 1.7, 0.6, 0.05};
  const std::size_t index = static_cast<std::size_t>(vowel - u'அ');
  if (index >= std::size(kShares) || kShares[index] == 0) return 0;
  return kWeight * std::log(kShares[0] / kShares[index]);
}

// ங stands almost only before க (as ங்), ஞ before ச or with ா, ை, ெ.
bool IsRareSyllable(char16_t consonant, char16_t sign) {
  if (consonant == u'ங') return sign != kPulli;
  if (consonant == u'ஞ') return sign != kPulli && sign != u'ா' && sign != u'ை' && sign != u'ெ' && IsSign(sign);
  return false;
}

struct WordScore {
  double tamil = 0;
  double penalty = 0;
  double letters = 0;
  double consonants = 0;
  double dead = 0;  // consonants with pulli
};

void ScoreWord(std::u16string_view word, WordScore& score) {
  for (std::size_t i = 0; i < word.size(); ++i) {
    const char16_t ch = word[i];
    const char16_t before = i > 0 ? word[i - 1] : u'\0';
    if (!IsTamil(ch)) {
      if (IsLatinLetter(ch)) {
        score.letters += 1;
        if (IsTamil(before) || (i + 1 < word.size() && IsTamil(word[i + 1]))) score.penalty += kMixedScript;
      } else {
        if (!IsPlainPunctuation(ch)) {
          score.letters += 1;
          score.penalty += kLeftover;
        }
        // Punctuation stands between words, never between two letters of one.
        if (IsTamil(before) && i + 1 < word.size() && IsTamil(word[i + 1])) score.penalty += kMixedScript;
      }
      continue;
    }
    score.letters += 1;
    score.tamil += 1;
    if (IsSign(ch) && !IsConsonant(before)) score.penalty += kBrokenSign;
    if (IsVowel(ch) && IsTamil(before)) score.penalty += kVowelInsideWord;
    const bool opening = !IsTamil(before);
    if (ch == 0x0B83 && (opening || !(i + 1 < word.size() && IsConsonant(word[i + 1])))) score.penalty += kBrokenSign;
    if (IsConsonant(ch) && i + 1 < word.size() && word[i + 1] == kPulli) score.penalty += ClusterPenalty(word, i);
    if (opening && IsVowel(ch)) score.penalty += RareVowelPenalty(ch);
    if (IsGrantha(ch)) score.penalty += kGranthaLetter;
    if (IsConsonant(ch)) {
      score.consonants += 1;
      const char16_t sign = i + 1 < word.size() ? word[i + 1] : u'\0';
      if (sign == kPulli) score.dead += 1;
      if (IsRareSyllable(ch, sign)) score.penalty += kRareSyllable;
    }
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
  // Dead consonants make up a fifth or more of the consonants of any Tamil prose; a reading with
  // almost none is letters in the wrong order, not Tamil.
  if (total.consonants >= kDeadShareFrom && total.dead < total.consonants * kLeastDeadShare) {
    total.penalty += total.tamil * kFewDeadPenalty;
  }
  return total;
}

// Cuts at a separator so that no syllable is split.
std::u16string_view Sample(std::u16string_view text, std::size_t limit) {
  if (text.size() <= limit) return text;
  const std::size_t cut = text.find_last_of(u" \r\n\t", limit);
  return text.substr(0, cut == std::u16string_view::npos || cut == 0 ? limit : cut);
}

// The family of each ranked guess: guesses of one score that read the text alike share one.
// Families are numbered in rank order, so the first guess is of family 0.
std::vector<std::size_t> NumberFamilies(const std::vector<EncodingGuess>& ranked,
                                        const std::vector<std::u16string>& readings,
                                        const std::vector<std::size_t>& order, std::size_t& families) {
  std::vector<std::size_t> family(ranked.size(), ranked.size());
  families = 0;
  for (std::size_t a = 0; a < ranked.size(); ++a) {
    if (family[a] != ranked.size()) continue;
    family[a] = families++;
    for (std::size_t b = a + 1; b < ranked.size(); ++b) {
      if (ranked[a].score == ranked[b].score && readings[order[a]] == readings[order[b]]) family[b] = family[a];
    }
  }
  return family;
}

// The softmax runs over families (guesses of one score that read the text alike), each family
// counted once; its members share its confidence equally.
void AssignConfidence(std::vector<EncodingGuess>& guesses, const std::vector<std::size_t>& family, std::size_t families,
                      double letters) {
  if (guesses.empty()) return;
  const double best = guesses.front().score;
  const double sharpness = kSharpness * std::max(letters, 1.0);
  std::vector<double> weight(families, 0);
  std::vector<std::size_t> members(families, 0);
  double sum = 0;
  for (std::size_t i = 0; i < guesses.size(); ++i) {
    if (members[family[i]]++ == 0) {
      weight[family[i]] = std::exp((guesses[i].score - best) * sharpness);
      sum += weight[family[i]];
    }
  }
  for (std::size_t i = 0; i < guesses.size(); ++i) {
    guesses[i].familyConfidence = weight[family[i]] / sum;
    guesses[i].confidence = guesses[i].familyConfidence / static_cast<double>(members[family[i]]);
  }
}

// How many syllables of the script come back through the encoding's two tables.
std::size_t Coverage(PairReplacer& toUnicode, std::vector<TablePair> toLegacyPairs) {
  PairReplacer toLegacy(std::move(toLegacyPairs));
  const std::u16string consonants = u"கஙசஞடணதநபமயரலவழளறனஜஷஸஹ";
  const std::u16string signs = u"\u0BCD\u0BBE\u0BBF\u0BC0\u0BC1\u0BC2\u0BC6\u0BC7\u0BC8\u0BCA\u0BCB\u0BCC";
  std::size_t carried = 0;
  const auto check = [&](const std::u16string& syllable) {
    const std::u16string legacy = toLegacy.Apply(syllable);
    if (std::none_of(legacy.begin(), legacy.end(), IsTamil) && toUnicode.Apply(legacy) == syllable) ++carried;
  };
  for (char16_t vowel = u'அ'; vowel <= u'ஔ'; ++vowel) check(std::u16string(1, vowel));
  for (const char16_t consonant : consonants) {
    check(std::u16string(1, consonant));
    for (const char16_t sign : signs) check(std::u16string{consonant, sign});
  }
  return carried;
}

}  // namespace

bool ReadsAsTamil(const EncodingGuess& guess) { return guess.score >= kTamilFloor; }

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
    auto replacer = std::make_shared<PairReplacer>(ParseConversionTable(table).pairs);
    const ConversionTable toLegacy =
        ParseConversionTable(LoadTableText(converterFolder, *UnicodeToLegacyTableId(static_cast<int>(position), true)));
    const ConversionTable toLegacyPlainRa = ParseConversionTable(
        LoadTableText(converterFolder, *UnicodeToLegacyTableId(static_cast<int>(position), false)));
    auto written = std::make_shared<std::vector<bool>>(0x10000, false);
    for (const ConversionTable* written_by : {&toLegacy, &toLegacyPlainRa}) {
      for (const TablePair& pair : written_by->pairs) {
        for (const char16_t unit : pair.replacement) (*written)[unit] = true;
      }
    }
    auto read = std::make_shared<std::vector<bool>>(0x10000, false);
    for (const TablePair& pair : ParseConversionTable(table).pairs) {
      for (const char16_t unit : pair.find) (*read)[unit] = true;
    }
    const std::size_t coverage = Coverage(*replacer, toLegacy.pairs);
    detector.candidates_.push_back({static_cast<int>(position), list.names[position], std::move(replacer), coverage,
                                    std::move(written), std::move(read), std::make_shared<PairReplacer>(toLegacy.pairs),
                                    std::make_shared<PairReplacer>(toLegacyPlainRa.pairs)});
  }
  return detector;
}

std::vector<EncodingGuess> EncodingDetector::Rank(std::u16string_view text, std::size_t sampleLimit) const {
  const std::u16string_view sample = Sample(text, sampleLimit);
  std::vector<EncodingGuess> guesses;
  std::vector<std::u16string> readings;
  double letters = 0;
  for (const Candidate& candidate : candidates_) {
    readings.push_back(candidate.replacer->Apply(sample));
    const WordScore score = ScoreText(readings.back());
    letters = std::max(letters, score.letters);
    const double value = score.letters == 0 ? 0.0 : (score.tamil - score.penalty) / score.letters;
    guesses.push_back({candidate.position, candidate.name, value, 0, {}, 0});
  }
  // Between equal scores: fewer codes the encoding never writes, then more syllables carried,
  // then list order, so the answer never depends on the sort.
  std::vector<std::size_t> order(guesses.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  std::vector<std::size_t> unwritten(candidates_.size(), 0);
  for (std::size_t i = 0; i < candidates_.size(); ++i) {
    const std::vector<bool>& written = *candidates_[i].written;
    const std::vector<bool>& read = *candidates_[i].read;
    for (const char16_t unit : sample) unwritten[i] += read[unit] && !written[unit];
  }
  const std::vector<bool> writesBack = WritesBack(sample, guesses, readings);
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    if (guesses[a].score != guesses[b].score) return guesses[a].score > guesses[b].score;
    if (writesBack[a] != writesBack[b]) return writesBack[a];
    if (unwritten[a] != unwritten[b]) return unwritten[a] < unwritten[b];
    return candidates_[a].coverage > candidates_[b].coverage;
  });
  std::vector<EncodingGuess> sorted;
  for (const std::size_t i : order) sorted.push_back(guesses[i]);
  std::size_t families = 0;
  const std::vector<std::size_t> family = NumberFamilies(sorted, readings, order, families);
  AssignConfidence(sorted, family, families, letters);
  for (std::size_t a = 0; a < order.size(); ++a) {
    for (std::size_t b = 0; b < order.size(); ++b) {
      if (a != b && family[a] == family[b]) sorted[a].alike.push_back(sorted[b].name);
    }
  }
  return sorted;
}

// Bytes that are valid UTF-8 may still be legacy glyph codes: in a short text, high bytes pair
// up into UTF-8 by chance (TSCII-like "\xCF\xB0" is U+03F0). Without a UTF-8 mark both readings
// are ranked, and the one that reads better as Tamil is kept.
std::u16string EncodingDetector::ReadBestDecoding(std::string_view bytes, std::size_t sampleLimit,
                                                  std::vector<EncodingGuess>& guesses) const {
  std::u16string text = DecodeTextFileBytes(bytes);
  guesses = Rank(text, sampleLimit);
  if (text::FormByMark(bytes) == text::TextForm::Utf8WithMark || guesses.empty()) return text;
  std::u16string glyphCodes = LegacyBytesToText(bytes);
  if (glyphCodes == text) return text;
  std::vector<EncodingGuess> asGlyphCodes = Rank(glyphCodes, sampleLimit);
  if (asGlyphCodes.front().score <= guesses.front().score) return text;
  guesses = std::move(asGlyphCodes);
  return glyphCodes;
}

Detection EncodingDetector::Detect(std::string_view bytes, std::size_t sampleLimit) const {
  Detection detection;
  if (const std::optional<TextKind> kind = SniffBytes(bytes)) {
    detection.kind = *kind;
    return detection;
  }
  const std::u16string text = ReadBestDecoding(bytes, sampleLimit, detection.guesses);
  detection.englishLikeness = EnglishLikeness(Sample(text, sampleLimit));
  const double tamil = detection.guesses.empty() ? 0.0 : detection.guesses.front().score;
  if (detection.englishLikeness >= kEnglishFloor && detection.englishLikeness >= tamil) {
    detection.kind = TextKind::English;
  } else if (detection.guesses.empty() || !ReadsAsTamil(detection.guesses.front())) {
    detection.kind = TextKind::Unknown;
  }
  return detection;
}

// Only for candidates that read the text exactly as another does: elsewhere the score decides.
std::vector<bool> EncodingDetector::WritesBack(std::u16string_view sample, const std::vector<EncodingGuess>& guesses,
                                               const std::vector<std::u16string>& readings) const {
  std::vector<bool> writesBack(candidates_.size(), false);
  for (std::size_t i = 0; i < candidates_.size(); ++i) {
    bool tied = false;
    for (std::size_t j = 0; j < candidates_.size() && !tied; ++j) {
      tied = j != i && guesses[i].score == guesses[j].score && readings[i] == readings[j];
    }
    if (!tied) continue;
    const Candidate& candidate = candidates_[i];
    writesBack[i] =
        candidate.writer->Apply(readings[i]) == sample || candidate.plainRaWriter->Apply(readings[i]) == sample;
  }
  return writesBack;
}

std::u16string FamilyName(const EncodingGuess& guess) {
  std::u16string name = guess.name;
  for (std::size_t i = 0; i < guess.alike.size(); ++i) {
    name += i + 1 == guess.alike.size() ? u" or " : u", ";
    name += guess.alike[i];
  }
  return name;
}

}  // namespace quilom::converter
