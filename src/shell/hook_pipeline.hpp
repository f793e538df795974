#pragma once

#include <array>
#include <cstdint>

#include "shell/hook_decision.hpp"
#include "shell/hooked_key_processor.hpp"
#include "shell/key_event.hpp"
#include "shell/typing_front_state.hpp"

// The decisions of the low-level hooks, free of Windows. The Win32 callbacks wrap each event in
// a KeyEvent, call Handle*, and carry out the answer: swallow (return 1) or pass
// (CallNextHookEx), and synthesise the menu-suppression keys when asked.
//
// Rules beyond the plain event table, decided here:
// - Injected events (our own output, and everything else synthetic) pass untouched and change
//   no state: our output re-enters the hook, nested, while the callback that made it still runs.
// - A key-up gets its key-down's verdict: a key whose down was swallowed has its up swallowed,
//   a key whose down was passed has its up passed and never processed, so no application sees
//   half a key press and no key is handled twice. Only key-ups whose down this hook never saw
//   follow the plain table.
// - A left click breaks the composition: the first key processed after a click starts afresh,
//   because the caret may now be anywhere.
// - When a fast key-down ends click mode, the letters still held back for their key-up are
//   processed first, in the order they went down, so that fast typing right after a click
//   loses nothing; the new key is then handled as in normal mode (Escape, function keys and the
//   like pass on with a reset rather than being swallowed). Leaving click mode does not break
//   the composition again: the click already did, and the letters typed since belong to the
//   syllable being typed ("va" typed quickly after a click must still give one letter).
// - Key-up processing never reorders keys: the key-up of a held-back key hands over every key
//   held before it first, and any other key that types or reaches the application (Enter, an
//   arrow, a chord, a hotkey) hands over every held-back key before itself. So a rolled "ka"
//   (k down, a down, a up, k up) gives "ka", whatever the time between the key-downs.
// - A hotkey's number ends after a pause (HookedKeyProcessor::kHotkeyNumberPauseMs): every
//   key-down but a hotkey key first ends a paused hotkey sequence, so that with typing off a
//   digit typed late passes to the application instead of choosing a keymap.
// - With "Smart Editing" or "Fast Editing" a Backspace reaches the application (it erases one
//   character there) and is handed to the processor, whose engine edits its composition; its
//   key-up breaks nothing. Without them a Backspace ends the composition as any other key.
// - In the focal (hotkeys-only) hook a numeric-pad digit is taken only while a hotkey is armed,
//   like a top-row digit: with typing off the keypad must keep working.
namespace quilom::shell {

struct HookOutcome {
  bool swallow = false;
  MenuSuppression menu = MenuSuppression::None;
};

class HookPipeline {
 public:
  // 56 ms: a key-down this soon after the previous one in click mode means overlapping keys,
  // which key-up processing would reorder.
  static constexpr std::uint32_t kFastKeyMs = 56;

  HookPipeline(TypingFrontState& state, HookedKeyProcessor& processor, const KeyStateReader& keys, const Clock& clock);

  // Decide only (state is updated; ProcessHookedKey is not called).
  HookDecision DecideGlobal(const KeyEvent& event);
  HookDecision DecideFocal(const KeyEvent& event);

  // Decide and make the calls.
  HookOutcome HandleGlobal(const KeyEvent& event) noexcept;
  HookOutcome HandleFocal(const KeyEvent& event) noexcept;

  // The mouse hook: a left button down or up enters click mode.
  void OnMouse(std::uint32_t message);

  // Forgets every key held back or remembered (typing switched on or off).
  void ForgetKeys();

 private:
  enum class DownRecord : std::uint8_t { None, Passed, Swallowed, HeldBack };

  HookDecision NormalDown(int vk) const;
  HookDecision ClickModeDown(int vk);
  HookDecision ChordDown(int vk) const;
  HookDecision GlobalUp(const KeyEvent& event, int vk);
  bool IsHeldBack(int vk) const;
  void HoldBack(int vk, bool shift);
  void FlushHeldBack(HookDecision& decision);
  // Hands the first `count` held-back keys over, in the order they went down.
  void ReleaseHeldBack(int count, HookDecision& decision);
  // `own` preceded by every held-back key, unless the key is a modifier that changes no text.
  HookDecision AfterHeldBack(int vk, const HookDecision& own);
  void Remember(int vk, const HookDecision& decision);
  bool ChordHeld() const;
  bool ShiftHeld() const;
  bool EditsComposition() const;
  HookOutcome CarryOut(const HookDecision& decision) noexcept;

  TypingFrontState& state_;
  HookedKeyProcessor& processor_;
  const KeyStateReader& keys_;
  const Clock& clock_;
  bool clickBrokeComposition_ = false;
  std::array<DownRecord, 256> downRecords_{};
  std::array<std::uint8_t, 256> heldShift_{};
  std::array<std::uint8_t, 8> heldOrder_{};
  int heldCount_ = 0;
};

}  // namespace quilom::shell
