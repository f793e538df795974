// One key's road inside the typing program, without the system calls: hook decision, the real
// engine with the Tamil phonetic keymap, and the output plan. The plan's submission is counted,
// not sent. Run: build/<dir>/bin/hook_bench
#include <benchmark/benchmark.h>

#include <memory>
#include <span>
#include <string_view>

#include "settings/data_folders.hpp"
#include "shell/hook_pipeline.hpp"
#include "shell/key_classes.hpp"
#include "shell/typing_output.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"

namespace {

using namespace quilom;

class NoKeysHeld final : public shell::KeyStateReader {
 public:
  bool IsDown(int) const override { return false; }
};

class SteppingClock final : public shell::Clock {
 public:
  std::uint32_t TickCount() const override { return now; }
  std::uint32_t now = 1000;
};

class CountingSubmitter final : public shell::InputSubmitter {
 public:
  void Submit(std::span<const shell::InputBatch> plan, std::u16string_view) noexcept override {
    batches += plan.size();
  }
  std::size_t batches = 0;
};

std::shared_ptr<const translit::PhoneticKeymap> TamilPhonetic() {
  const auto folders = settings::DataFolders::ForDataRoot(QUILOM_SOURCE_DATA_DIR);
  std::shared_ptr<const translit::PhoneticKeymap> tables;
  translit::LoadPhoneticKeymap(folders.keymapFolder, u"Tamil-Unicode-PhoneticTransliteration", {}, tables);
  return tables;
}

// Keys of ordinary Tamil typing: words of several syllables and spaces.
constexpr std::string_view kTyped = "VANAKKAM THAMIZH NAAN KADAIKKU PONEN ";

void BM_KeyThroughDecisionEngineAndPlan(benchmark::State& state) {
  CountingSubmitter submitter;
  shell::TypingOutput output(submitter);
  translit::Engine engine(output);
  engine.SetKeymap(TamilPhonetic());
  shell::TypingFrontState front;
  shell::HookedKeyProcessor processor(front, engine);
  NoKeysHeld keys;
  SteppingClock clock;
  shell::HookPipeline pipeline(front, processor, keys, clock);

  std::size_t next = 0;
  for (auto _ : state) {
    const auto vk = static_cast<std::uint32_t>(kTyped[next]);
    next = next + 1 == kTyped.size() ? 0 : next + 1;
    const auto down = pipeline.HandleGlobal({shell::kWmKeyDown, vk, 0, 0});
    const auto up = pipeline.HandleGlobal({shell::kWmKeyUp, vk, shell::kFlagUp, 0});
    benchmark::DoNotOptimize(down);
    benchmark::DoNotOptimize(up);
  }
  state.counters["batches/key"] =
      benchmark::Counter(static_cast<double>(submitter.batches), benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_KeyThroughDecisionEngineAndPlan);

// The decision alone, for a key that the engine never sees (Ctrl+C).
void BM_DecisionForAChord(benchmark::State& state) {
  class CtrlHeld final : public shell::KeyStateReader {
   public:
    bool IsDown(int vk) const override { return vk == shell::kVkControl; }
  } keys;
  translit::NullOutputSink sink;
  translit::Engine engine(sink);
  shell::TypingFrontState front;
  shell::HookedKeyProcessor processor(front, engine);
  SteppingClock clock;
  shell::HookPipeline pipeline(front, processor, keys, clock);
  for (auto _ : state) {
    benchmark::DoNotOptimize(pipeline.HandleGlobal({shell::kWmKeyDown, 'C', 0, 0}));
  }
}
BENCHMARK(BM_DecisionForAChord);

}  // namespace
