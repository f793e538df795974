#include "shell/hotkey_number.hpp"

namespace quilom::shell {

namespace {

int DigitValue(int vk) {
  if (vk >= 0x30 && vk <= 0x39) return vk - 0x30;
  if (vk >= 0x60 && vk <= 0x69) return vk - 0x60;
  return -1;
}

// Numbers longer than this cannot name a keymap; capping keeps the conversion from overflowing.
constexpr std::size_t kMaxDigits = 6;

}  // namespace

DigitOutcome HotkeyNumberSelector::OnDigit(HookKeyState& keys, int vk, int keymapCount, bool globalHookInstalled) {
  const int digit = DigitValue(vk);
  if (digit < 0) return {};
  if (keys.ComposeFlag == 0) pending_.clear();
  keys.ComposeFlag = 1;
  if (digit == 0 && pending_.empty()) {
    if (!globalHookInstalled) return {};
    return {DigitOutcome::Kind::ApplyFloaterKeymap, 0};
  }
  if (pending_.size() >= kMaxDigits) return {};
  pending_.push_back(static_cast<char16_t>(u'0' + digit));
  int number = 0;
  for (const char16_t c : pending_) number = number * 10 + (c - u'0');
  const int index = (number >= 1 && number <= 9) ? table_[number - 1] : number;
  if (index < 1 || index > keymapCount) return {};
  return {DigitOutcome::Kind::SelectIndex, index};
}

}  // namespace quilom::shell
