#include "shell/win32/system_input.hpp"

#include "shell/win32/clipboard_loan.hpp"

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
  const auto& paste = PasteInputs();
  for (size_t i = 0; i < paste.size(); ++i) pasteInputs_[i] = ToInput(paste[i]);
}

void SendInputSubmitter::Submit(std::span<const InputBatch> plan, std::u16string_view text) noexcept {
  // Results are not checked: input that the target refuses (a window of higher integrity) is
  // lost, and nothing here could recover it.
  for (const InputBatch& batch : plan) {
    if (batch.table == InputTable::Backspace) {
      SendInput(batch.count, &backspaceInputs_[batch.first], sizeof(INPUT));
    } else if (batch.table == InputTable::ClipboardHold) {
      LendClipboard(text);
    } else if (batch.table == InputTable::PasteKeys) {
      SendInput(static_cast<UINT>(pasteInputs_.size()), pasteInputs_.data(), sizeof(INPUT));
    } else if (batch.table == InputTable::ClipboardGiveBack) {
      GiveClipboardBackLater();
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
