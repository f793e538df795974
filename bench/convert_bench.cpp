// Conversion throughput on 1 MB and 10 MB of legacy text with the shipped TSCII tables.
//   taskset -c 1 build/<you>/bin/convert_bench
// "bytes_per_second" is legacy text (one byte per glyph code) converted per second, one core.
// The two sizes show whether the cost grows in step with the text (the same rate at both).

#include <benchmark/benchmark.h>

#include <random>

#include "converter/convert_checks.hpp"
#include "converter/encoding_list.hpp"
#include "converter/pair_replacer.hpp"
#include "text/strings.hpp"

namespace {

using namespace quilom::converter;

constexpr std::size_t kMegabyte = 1u << 20;
constexpr std::size_t kVocabulary = 30000;

std::filesystem::path Folder() { return std::filesystem::path(QUILOM_SOURCE_DATA_DIR) / "Tamil Fonts Converter"; }

std::vector<TablePair> Table(int id) { return ParseConversionTable(LoadTableText(Folder(), id)).pairs; }

int TsciiPosition() { return LoadEncodingList(Folder()).Position(u"Tscii").value_or(1); }

// Pseudo-words of Tamil syllables: consonants with signs, a vowel now and then at the start.
std::u16string RandomWord(std::mt19937& rng) {
  static const std::u16string consonants = u"கஙசஞடணதநபமயரலவழளறன";
  static const std::u16string signs = u"\u0BCD\u0BBE\u0BBF\u0BC0\u0BC1\u0BC2\u0BC6\u0BC7\u0BC8\u0BCA\u0BCB\u0BCC";
  std::u16string word;
  if (rng() % 4 == 0) word += static_cast<char16_t>(u'அ' + rng() % 4);
  const std::size_t syllables = 2 + rng() % 5;
  for (std::size_t i = 0; i < syllables; ++i) {
    word += consonants[rng() % consonants.size()];
    if (rng() % 3 != 0) word += signs[rng() % signs.size()];
  }
  return word;
}

// About `bytes` of Unicode text whose words follow Zipf's law over a fixed vocabulary, as the
// words of real prose do; with `distinct`, no word comes back (the worst case).
std::u16string MakeUnicodeText(std::size_t legacyBytes, bool distinct) {
  std::mt19937 rng(7);
  std::vector<std::u16string> vocabulary;
  for (std::size_t i = 0; i < kVocabulary; ++i) vocabulary.push_back(RandomWord(rng));
  std::vector<double> weights;
  for (std::size_t i = 0; i < kVocabulary; ++i) weights.push_back(1.0 / static_cast<double>(i + 1));
  std::discrete_distribution<std::size_t> zipf(weights.begin(), weights.end());
  std::u16string text;
  // A Unicode syllable is about as long as its TSCII glyph codes.
  while (text.size() < legacyBytes) {
    text += distinct ? RandomWord(rng) : vocabulary[zipf(rng)];
    text += rng() % 12 == 0 ? u".\r\n" : u" ";
  }
  return text;
}

std::u16string LegacyText(bool distinct, std::size_t bytes) {
  PairReplacer toLegacy(Table(*UnicodeToLegacyTableId(TsciiPosition(), true)));
  std::u16string legacy = toLegacy.Apply(MakeUnicodeText(bytes, distinct));
  legacy.resize(std::min(legacy.size(), bytes));
  return legacy;
}

// state.range(0): megabytes of text.
void LegacyToUnicode(benchmark::State& state, bool distinct) {
  const std::vector<TablePair> pairs = Table(*LegacyToUnicodeTableId(TsciiPosition(), true));
  const std::u16string legacy = LegacyText(distinct, static_cast<std::size_t>(state.range(0)) * kMegabyte);
  for (auto _ : state) {
    PairReplacer replacer(pairs);  // nothing remembered from the last round
    benchmark::DoNotOptimize(replacer.Apply(legacy));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(legacy.size()));
  state.counters["pairs"] = static_cast<double>(pairs.size());
}

void BM_TsciiToUnicode_Prose(benchmark::State& state) { LegacyToUnicode(state, false); }
void BM_TsciiToUnicode_NoRepeatedWords(benchmark::State& state) { LegacyToUnicode(state, true); }

void BM_UnicodeToTscii_Prose(benchmark::State& state) {
  const std::vector<TablePair> pairs = Table(*UnicodeToLegacyTableId(TsciiPosition(), true));
  const std::u16string unicode = MakeUnicodeText(static_cast<std::size_t>(state.range(0)) * kMegabyte, false);
  for (auto _ : state) {
    PairReplacer replacer(pairs);
    benchmark::DoNotOptimize(replacer.Apply(unicode));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(unicode.size()));
}

// The plain meaning, one full pass per pair, on a tenth of the text: what the fast path saves.
void BM_TsciiToUnicode_OnePassPerPair1MB(benchmark::State& state) {
  const std::vector<TablePair> pairs = Table(*LegacyToUnicodeTableId(TsciiPosition(), true));
  const std::u16string legacy = LegacyText(false, kMegabyte);
  for (auto _ : state) {
    std::u16string text = legacy;
    for (const TablePair& pair : pairs) text = ReplaceEveryOccurrence(text, pair.find, pair.replacement);
    benchmark::DoNotOptimize(text);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(legacy.size()));
}

BENCHMARK(BM_TsciiToUnicode_Prose)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TsciiToUnicode_NoRepeatedWords)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UnicodeToTscii_Prose)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TsciiToUnicode_OnePassPerPair1MB)->Unit(benchmark::kMillisecond);

}  // namespace
