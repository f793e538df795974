#include "shell/win32/system_input.hpp"

namespace quilom::shell::win32 {
namespace {

INPUT ToInput(const KeyInputRecord& record) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = record.vk;
  input.ki.wScan = record.scan;
  input.ki.dwFlags = record.flags;
  input.ki.dwExtraInfo = kOwnInputMark;
  return input;
}

}  // namespace

SendInputSubmitter::SendInputSubmitter() {
  const auto& backspaces = BackspaceInputs();
  for (int slot = 0; slot < kBackspaceSlots; ++slot) backspaceInputs_[slot] = ToInput(backspaces[slot]);
  const auto unicode = UnicodeCharInputs(0);
  unicodeCharInputs_ = {ToInput(unicode[0]), ToInput(unicode[1])};
}

void SendInputSubmitter::Submit(std::span<const InputBatch> plan) noexcept {
  // Results are not checked: input that the target refuses (a window of higher integrity) is
  // lost, and nothing here could recover it.
  for (const InputBatch& batch : plan) {
    if (batch.table == InputTable::Backspace) {
      SendInput(batch.count, &backspaceInputs_[batch.first], sizeof(INPUT));
    } else {
      unicodeCharInputs_[0].ki.wScan = batch.codeUnit;
      unicodeCharInputs_[1].ki.wScan = batch.codeUnit;
      SendInput(2, unicodeCharInputs_.data(), sizeof(INPUT));
    }
  }
}

void SuppressMenuKey(bool alt) noexcept {
  const BYTE key = alt ? VK_MENU : VK_RWIN;
  keybd_event(key, 0, 0, 0);
  keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
}

}  // namespace quilom::shell::win32
