#pragma once

#include <array>
#include <cstdint>

// What a keyboard hook callback is to do with one event: the ProcessHookedKey calls to make, in
// order, and whether the physical key is swallowed or passed on.
namespace quilom::shell {

struct HookedKeyCall {
  int shift = 0;  // 0 or 1
  int key = 0;    // virtual-key code or kResetSignal
  bool operator==(const HookedKeyCall&) const = default;
};

struct HookDecision {
  // Enough for a reset, every key held back in click mode, and the key itself.
  static constexpr int kMaxCalls = 12;

  bool swallow = false;
  bool resetEngineFirst = false;  // break the composition before making the calls
  int callCount = 0;
  std::array<HookedKeyCall, kMaxCalls> calls{};

  void Add(int shift, int key) {
    if (callCount < kMaxCalls) calls[callCount++] = {shift, key};
  }
};

}  // namespace quilom::shell
