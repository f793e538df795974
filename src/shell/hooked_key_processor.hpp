#pragma once

#include <cstdint>
#include <functional>

#include "shell/key_event.hpp"
#include "shell/typing_front_state.hpp"
#include "translit/typing_engine.hpp"

// The hand-over from the keyboard hooks to the typing engine: `ProcessHookedKey` takes one key
// (or the reset signal) with its Shift flag, keeps the hotkey bookkeeping and feeds typing keys
// to the engine as the characters of a US English keyboard.
namespace quilom::shell {

// A second press of the key family that the win32 layer must synthesise (keybd_event, marked
// as injected) so that a hotkey made of Alt or a Windows key does not open the menu bar or the
// Start menu.
enum class MenuSuppression { None, Alt, Windows };

class HookedKeyProcessor {
 public:
  // The keymap number typed after a hotkey ends when no digit follows within this pause (from
  // the hotkey key or the number's last digit): a digit typed later is text. A second is long
  // enough for "1", "2" typed as one number and short enough that "hotkey, 1, 25 vaNakkam"
  // typed at a natural pace keeps its 25.
  static constexpr std::uint32_t kHotkeyNumberPauseMs = 1000;

  // Without a clock (text typed by a program rather than a person) the number never times out.
  HookedKeyProcessor(TypingFrontState& state, translit::TypingEngine& engine, const Clock* clock = nullptr);

  // `shift` is 0 or 1; `key` a virtual-key code or kResetSignal. Never throws: an error inside
  // the engine is swallowed so that the hook callback always returns.
  //
  // Decisions of ours: right after a hotkey key, a key other than a digit is ignored and also
  // ends the hotkey sequence (LastKey becomes the reset signal), so that typing goes on with the
  // next key instead of ignoring keys until some reset arrives. Once digits were typed (the digit
  // handler set ComposeFlag to 1, as HotkeyNumberSelector does), any other key ends the number
  // and is typed at once, so "hotkey, 1, a" types the "a" in the keymap just chosen.
  // Backspace (kVkBack, which the application also receives) goes to the engine's Backspace
  // with the editing choices. With "Include Hotkeys" off the completed hotkey is read as hotkey
  // and 1 (typing on in the first keymap, or off) and arms no number.
  MenuSuppression ProcessHookedKey(int shift, int key) noexcept;

  // Called with the virtual-key code of each digit (top row or numeric pad) typed right after
  // a hotkey key; the keymap selection by number plugs in here.
  void SetHotkeyDigitHandler(std::function<void(int vk)> handler) { digitHandler_ = std::move(handler); }

  // Breaks the engine's composition (a click, a cursor key, typing switched off).
  void ResetComposition() noexcept;

  // Ends the hotkey sequence (armed hotkey and pending number) when its last key is longer ago
  // than kHotkeyNumberPauseMs, so that the key now arriving is read as an ordinary key. The hooks
  // call it before they decide on a key-down; ProcessHookedKey calls it too. Returns whether a
  // sequence ended.
  bool EndPausedHotkeyNumber() noexcept;

 private:
  MenuSuppression ArmHotkey(int key);
  void AfterHotkey(int shift, int key);
  void TypeKey(int shift, int key);

  void NoteHotkeyTime();

  TypingFrontState& state_;
  translit::TypingEngine& engine_;
  const Clock* clock_;
  std::uint32_t lastHotkeyTick_ = 0;
  std::function<void(int vk)> digitHandler_;
};

}  // namespace quilom::shell
