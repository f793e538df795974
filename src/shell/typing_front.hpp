#pragma once

#include <cstdint>

#include "shell/hook_health.hpp"
#include "shell/hook_pipeline.hpp"
#include "shell/hook_set.hpp"
#include "shell/hooked_key_processor.hpp"
#include "shell/typing_front_state.hpp"

// The typing front end put together: shared state, key processor, hook decisions, the set of
// installed hooks and their health watch. The main window owns one for the life of the process;
// the Win32 callbacks reach it through one global pointer.
namespace quilom::shell {

class TypingFront {
 public:
  TypingFront(translit::TypingEngine& engine, const KeyStateReader& keys, const Clock& clock, HookPlatform& platform);
  TypingFront(const TypingFront&) = delete;
  TypingFront& operator=(const TypingFront&) = delete;

  TypingFrontState& State() { return state_; }
  HookedKeyProcessor& Processor() { return processor_; }
  HookPipeline& Pipeline() { return pipeline_; }
  HookSet& Hooks() { return hooks_; }
  HookHealth& Health() { return health_; }
  const HookHealth& Health() const { return health_; }

  // Typing on: the global keyboard and mouse hooks replace the focal hook. Returns whether
  // typing is on afterwards.
  bool StartTyping();
  // Typing off: the focal hook replaces the global hooks; the composition is broken.
  void StopTyping();
  // Returns whether typing is on afterwards.
  bool ToggleTyping();
  bool TypingOn() const { return hooks_.GlobalInstalled(); }

  // The health timer's tick: re-installs the hooks when they look dropped. Returns whether it
  // did.
  bool CheckHealth(std::uint32_t lastSystemInputTick);

 private:
  TypingFrontState state_;
  HookedKeyProcessor processor_;
  HookPipeline pipeline_;
  HookSet hooks_;
  HookHealth health_;
};

}  // namespace quilom::shell
