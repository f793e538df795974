#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <string>

#include "settings/data_folders.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"

// Counts every allocation, so the benchmark can show how many a key costs once warm.
static std::atomic<long long> allocationCount{0};

void* operator new(std::size_t size) {
  ++allocationCount;
  if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

namespace {

using namespace quilom;

const std::filesystem::path& KeymapFolder() {
  static const auto folder = settings::DataFolders::ForDataRoot(QUILOM_SOURCE_DATA_DIR).keymapFolder;
  return folder;
}

constexpr char16_t kScheme[] = u"Tamil-Unicode-PhoneticTransliteration";

constexpr char16_t kPhoneticSentence[] =
    u"vaNakkam thamizh makkaLE inRu naam puththakam padiththOm avaL kaatru vanthaan ezhuththu "
    u"thiruvaLLuvar uyir mozhi pazham gnaanam kshaththiriyan Sri haaSyam owvaiyaar aiyaa ";
constexpr char16_t kTamil99Sentence[] = u"vphhkf lks/f akkq jpokf s;ls'q hufh jhhkf g/dlldhhs Z A N U Us ";

// A paragraph of about 2,000 keys, spaces included, as a typist would send them.
std::u16string Paragraph(std::u16string_view sentence) {
  std::u16string text;
  while (text.size() < 2000) text += sentence;
  return text.substr(0, 2000);
}

class CountingSink final : public translit::OutputSink {
 public:
  long long units = 0;

 protected:
  void Emit(int eraseCount, std::u16string_view text) override { units += eraseCount + text.size(); }
};

void BM_EnginePerKey(benchmark::State& state, std::u16string_view scheme, std::u16string_view sentence) {
  std::shared_ptr<const translit::PhoneticKeymap> tables;
  if (translit::LoadPhoneticKeymap(KeymapFolder(), scheme, {}, tables) != translit::LoadOutcome::Loaded) {
    state.SkipWithError("keymap not loaded");
    return;
  }
  const std::u16string paragraph = Paragraph(sentence);
  CountingSink sink;
  translit::Engine engine(sink);
  engine.SetKeymap(tables);
  for (char16_t key : paragraph) engine.ProcessKey(key);  // warm: buffers reach their size
  const long long allocationsBefore = allocationCount.load();
  for (auto _ : state) {
    for (char16_t key : paragraph) engine.ProcessKey(key);
    benchmark::DoNotOptimize(sink.units);
  }
  state.counters["allocations_per_key"] =
      static_cast<double>(allocationCount.load() - allocationsBefore) /
      static_cast<double>(state.iterations() * static_cast<int64_t>(paragraph.size()));
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(paragraph.size()));
  // Shown with an SI prefix: "85n" is 85 ns a key.
  state.counters["time_per_key"] =
      benchmark::Counter(static_cast<double>(paragraph.size()),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK_CAPTURE(BM_EnginePerKey, TamilPhonetic, kScheme, kPhoneticSentence);
BENCHMARK_CAPTURE(BM_EnginePerKey, Tamil99, u"Tamil-Unicode-TamilNet99", kTamil99Sentence);

void BM_LoadTamilKeymap(benchmark::State& state) {
  for (auto _ : state) {
    std::shared_ptr<const translit::PhoneticKeymap> tables;
    const auto outcome = translit::LoadPhoneticKeymap(KeymapFolder(), kScheme, {}, tables);
    if (outcome != translit::LoadOutcome::Loaded) {
      state.SkipWithError("keymap not loaded");
      return;
    }
    benchmark::DoNotOptimize(tables->EntryCount());
  }
}
BENCHMARK(BM_LoadTamilKeymap)->Unit(benchmark::kMicrosecond);

}  // namespace
