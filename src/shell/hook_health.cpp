#include "shell/hook_health.hpp"

#include <algorithm>

namespace quilom::shell {

HookHealth::HookHealth(const Clock& clock) : clock_(clock), lastSeen_(clock.TickCount()) {}

void HookHealth::CallbackLeft(std::uint32_t enteredAt) {
  const std::uint32_t took = TicksBetween(enteredAt, clock_.TickCount());
  slowest_ = std::max(slowest_, took);
  if (took > kSlowCallbackMs) slowSinceCheck_ = true;
}

bool HookHealth::NeedsReinstall(std::uint32_t lastSystemInputTick, bool hooksSeeAllInput) {
  if (slowSinceCheck_) return true;
  if (!hooksSeeAllInput) return false;
  // Signed: input older than the last event seen is no news.
  const auto unseen = static_cast<std::int32_t>(TicksBetween(lastSeen_, lastSystemInputTick));
  if (unseen <= static_cast<std::int32_t>(kSkewToleranceMs)) return false;
  return TicksBetween(lastSystemInputTick, clock_.TickCount()) >= kSilenceMs;
}

void HookHealth::Reinstalled() {
  slowSinceCheck_ = false;
  lastSeen_ = clock_.TickCount();
  ++reinstalls_;
}

}  // namespace quilom::shell
