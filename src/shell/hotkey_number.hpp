#pragma once

#include <array>
#include <string>

#include "shell/typing_front_state.hpp"

// The digits typed after a hotkey key: each digit extends the pending number and selects the
// keymap with that number at once.
//
// The pending number belongs to one hotkey press. A new press is told by HookKeyState's
// ComposeFlag, which the key processor clears whenever a hotkey key arrives: the first digit
// after that sets it to 1, and while it stays 1 further digits extend the same number.
namespace quilom::shell {

// The nine-entry table: keymap index for numbers 1 to 9. By default number n is keymap n; the
// main window may load another order.
using NineKeymapTable = std::array<int, 9>;
inline constexpr NineKeymapTable kDefaultNineKeymapTable = {1, 2, 3, 4, 5, 6, 7, 8, 9};

struct DigitOutcome {
  enum class Kind { Nothing, SelectIndex, ApplyFloaterKeymap } kind = Kind::Nothing;
  int keymapIndex = 0;  // 1-based, for SelectIndex
};

class HotkeyNumberSelector {
 public:
  explicit HotkeyNumberSelector(NineKeymapTable table = kDefaultNineKeymapTable) : table_(table) {}

  void SetTable(const NineKeymapTable& table) { table_ = table; }

  // `vk` is a top-row (0x30-0x39) or numeric-pad (0x60-0x69) digit; anything else is Nothing.
  // Numbers 1-9 go through the table, larger numbers are the index itself, a number beyond
  // `keymapCount` (or a table entry outside 1..keymapCount) selects nothing but stays pending,
  // so "1" then "2" can still reach keymap 12. A 0 with nothing pending applies the floater's
  // keymap, but only while the global hook is installed.
  DigitOutcome OnDigit(HookKeyState& keys, int vk, int keymapCount, bool globalHookInstalled);

  const std::u16string& PendingNumber() const { return pending_; }

 private:
  NineKeymapTable table_;
  std::u16string pending_;
};

}  // namespace quilom::shell
