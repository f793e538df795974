#pragma once

#include <windows.h>

#include <array>

#include "shell/key_event.hpp"
#include "shell/output_plan.hpp"

// The system's side of the typing front end: the key state, the clock and SendInput.
namespace quilom::shell::win32 {

class AsyncKeyState final : public KeyStateReader {
 public:
  bool IsDown(int vk) const override { return (GetAsyncKeyState(vk) & 0x8000) != 0; }
};

class TickClock final : public Clock {
 public:
  std::uint32_t TickCount() const override { return GetTickCount(); }
};

// Marks every event we synthesise, beside the system's own injected flag, so that a log of
// the hook tells our output from other programs'.
inline constexpr ULONG_PTR kOwnInputMark = 0x51504C53;

// Submits output plans with SendInput, one call per batch, from INPUT tables built once.
class SendInputSubmitter final : public InputSubmitter {
 public:
  SendInputSubmitter();
  void Submit(std::span<const InputBatch> plan, std::u16string_view text) noexcept override;

 private:
  std::array<INPUT, kBackspaceSlots> backspaceInputs_{};
  std::array<INPUT, 2> unicodeCharInputs_{};
  std::array<INPUT, 4> pasteInputs_{};
};

// A second press of Alt or a Windows key, so that a hotkey made of one of them does not open
// the menu bar or the Start menu.
void SuppressMenuKey(bool alt) noexcept;

}  // namespace quilom::shell::win32
