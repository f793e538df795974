#pragma once

#include <windows.h>

#include "shell/hook_set.hpp"
#include "shell/keymap_selection.hpp"
#include "shell/typing_front.hpp"

// The three low-level hook callbacks and their installation. The callbacks only translate:
// they wrap the event, ask the typing front end, and carry out its answer.
namespace quilom::shell::win32 {

class LowLevelHookPlatform final : public HookPlatform {
 public:
  std::uintptr_t Install(HookKind kind) noexcept override;
  bool Remove(std::uintptr_t handle) noexcept override;
  long LastErrorCode() const noexcept override { return static_cast<long>(lastError_); }

 private:
  DWORD lastError_ = 0;
};

// The front end the callbacks serve; null detaches them (they then only pass events on).
void AttachTypingFront(TypingFront* front);

// The selection state whose one-application mode limits typing to the hooked window; null
// lets typing reach every window.
void AttachSelectionState(const SelectionState* state);

}  // namespace quilom::shell::win32
