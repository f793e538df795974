#pragma once

#include <cstdint>

#include "shell/key_event.hpp"

// Watches for the system dropping our low-level hooks. Windows removes a low-level hook,
// silently, whose callback overruns the hook time-out; typing then dies in every other program
// while ours looks fine. Two signs are watched, and either one asks for a re-install:
// - a callback that ran longer than kSlowCallbackMs (the system may have given up on it);
// - input that the system saw (GetLastInputInfo) more than kSkewToleranceMs after the last
//   event our hooks saw, and that is already kSilenceMs old, so a live hook would have long been
//   called for it. The tolerance is there because the system's time stamp of an event can run a
//   few milliseconds ahead of the tick our callback reads for the same event (seen under Wine).
//   Only meaningful while the mouse hook runs too, because the system's tick includes mouse
//   moves; the caller says so.
// Driven by a timer of the main window every kCheckIntervalMs.
namespace quilom::shell {

class HookHealth {
 public:
  static constexpr std::uint32_t kSlowCallbackMs = 200;
  static constexpr std::uint32_t kSilenceMs = 500;
  static constexpr std::uint32_t kSkewToleranceMs = 250;
  static constexpr std::uint32_t kCheckIntervalMs = 1000;

  explicit HookHealth(const Clock& clock);

  // Bracket every hook callback (keyboard and mouse, injected events included). Callbacks nest
  // (our own output re-enters the hook), so each one carries its own start tick.
  std::uint32_t CallbackEntered() {
    lastSeen_ = clock_.TickCount();
    return lastSeen_;
  }
  void CallbackLeft(std::uint32_t enteredAt);

  // True when the hooks should be re-installed now. `lastSystemInputTick` is the system's tick of
  // the last input; `hooksSeeAllInput` is true while both the keyboard and the mouse hook run.
  bool NeedsReinstall(std::uint32_t lastSystemInputTick, bool hooksSeeAllInput);

  // After a re-install: start watching afresh.
  void Reinstalled();

  std::uint32_t SlowestCallbackMs() const { return slowest_; }
  int ReinstallCount() const { return reinstalls_; }

 private:
  const Clock& clock_;
  std::uint32_t lastSeen_ = 0;
  std::uint32_t slowest_ = 0;
  bool slowSinceCheck_ = false;
  int reinstalls_ = 0;
};

}  // namespace quilom::shell
