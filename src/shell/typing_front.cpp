#include "shell/typing_front.hpp"

namespace quilom::shell {

TypingFront::TypingFront(translit::TypingEngine& engine, const KeyStateReader& keys, const Clock& clock,
                         HookPlatform& platform)
    : processor_(state_, engine, &clock),
      pipeline_(state_, processor_, keys, clock),
      hooks_(platform, [this] { processor_.ResetComposition(); }),
      health_(clock) {}

bool TypingFront::StartTyping() {
  pipeline_.ForgetKeys();
  state_.ClickPending = 0;
  processor_.ResetComposition();
  return hooks_.InstallGlobal(true);
}

void TypingFront::StopTyping() {
  pipeline_.ForgetKeys();
  state_.ClickPending = 0;
  hooks_.RemoveGlobal(true);
}

bool TypingFront::ToggleTyping() {
  if (TypingOn()) {
    StopTyping();
    return false;
  }
  return StartTyping();
}

bool TypingFront::CheckHealth(std::uint32_t lastSystemInputTick) {
  const bool seesAll = hooks_.GlobalInstalled() && hooks_.MouseInstalled();
  if (!health_.NeedsReinstall(lastSystemInputTick, seesAll)) return false;
  hooks_.Reinstall();
  health_.Reinstalled();
  return true;
}

}  // namespace quilom::shell
