#pragma once

#include <cstdint>

// The platform-free shape of one low-level keyboard or mouse event, and the two things the hook
// decision needs to ask the outside world: which keys are down, and what time it is. The Win32
// layer fills these from KBDLLHOOKSTRUCT, GetAsyncKeyState and GetTickCount; tests give fixed
// answers.
namespace quilom::shell {

// Message numbers as the low-level hooks deliver them in wParam.
inline constexpr std::uint32_t kWmKeyDown = 0x100;
inline constexpr std::uint32_t kWmKeyUp = 0x101;
inline constexpr std::uint32_t kWmSysKeyDown = 0x104;
inline constexpr std::uint32_t kWmSysKeyUp = 0x105;
inline constexpr std::uint32_t kWmLButtonDown = 0x201;
inline constexpr std::uint32_t kWmLButtonUp = 0x202;

// KBDLLHOOKSTRUCT flags.
inline constexpr std::uint32_t kFlagInjected = 0x10;
inline constexpr std::uint32_t kFlagUp = 0x80;

struct KeyEvent {
  std::uint32_t message = 0;  // wParam: kWmKeyDown ... kWmSysKeyUp
  std::uint32_t vkCode = 0;   // only the low 16 bits are meaningful
  std::uint32_t flags = 0;    // kFlagInjected, kFlagUp, ...
  std::uint32_t tick = 0;     // the event's own time stamp (informational)
};

// Up or down is read from the message, never from kFlagUp: injected Unicode key-ups arrive
// without kFlagUp under some systems.
constexpr bool IsKeyDownMessage(std::uint32_t message) { return message == kWmKeyDown || message == kWmSysKeyDown; }
constexpr bool IsKeyUpMessage(std::uint32_t message) { return message == kWmKeyUp || message == kWmSysKeyUp; }

class KeyStateReader {
 public:
  virtual ~KeyStateReader() = default;
  // True while the virtual key `vk` is physically held (GetAsyncKeyState bit 0x8000).
  virtual bool IsDown(int vk) const = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  // Milliseconds since some fixed start, wrapping at 2^32 (GetTickCount).
  virtual std::uint32_t TickCount() const = 0;
};

// Milliseconds from `earlier` to `later`, correct across the 49.7-day wrap of the tick count.
constexpr std::uint32_t TicksBetween(std::uint32_t earlier, std::uint32_t later) { return later - earlier; }

}  // namespace quilom::shell
