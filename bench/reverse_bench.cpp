// Reverse transliteration and URL normalisation throughput on the shipped sample text.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "text/utf.hpp"
#include "tools/reverse_transliteration.hpp"
#include "tools/url_normalizer.hpp"

namespace {

const std::filesystem::path kMainData = std::filesystem::path(QUILOM_SOURCE_DATA_DIR) / "Indic Direct Typer";

std::u16string LargeText() {
  const std::u16string sample = quilom::tools::LoadReverseSample(kMainData);
  std::u16string text;
  while (text.size() < 1'000'000) text += sample;
  return text;
}

void BM_ReverseOneMegaCharacters(benchmark::State& state) {
  const std::u16string text = LargeText();
  const auto words = quilom::tools::LoadReverseWordList(kMainData);
  const quilom::tools::ReverseOptions options{true, true, false};
  for (auto _ : state) {
    benchmark::DoNotOptimize(quilom::tools::ReverseTransliterate(text, options, words));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size() * sizeof(char16_t)));
  state.counters["chars"] = static_cast<double>(text.size());
}
BENCHMARK(BM_ReverseOneMegaCharacters)->Unit(benchmark::kMillisecond);

void BM_LoadWordList(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(quilom::tools::LoadReverseWordList(kMainData));
}
BENCHMARK(BM_LoadWordList)->Unit(benchmark::kMicrosecond);

void BM_NormalizeUrl(benchmark::State& state) {
  std::u16string url = u"https://ta.example.org/wiki/";
  for (int i = 0; i < 20; ++i) url += u"%E0%AE%A4%E0%AE%AE%E0%AE%BF%E0%AE%B4%E0%AF%8D_";
  for (auto _ : state) benchmark::DoNotOptimize(quilom::tools::NormalizeUrl(url));
}
BENCHMARK(BM_NormalizeUrl)->Unit(benchmark::kMicrosecond);

}  // namespace
