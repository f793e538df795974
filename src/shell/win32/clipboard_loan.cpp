#include "shell/win32/clipboard_loan.hpp"

#include <windows.h>

#include <cstring>
#include <optional>
#include <string>

namespace quilom::shell::win32 {
namespace {

std::optional<std::u16string> kept;  // the user's text; empty optional: the clipboard held none
UINT_PTR giveBackTimer = 0;

std::optional<std::u16string> ReadText() {
  std::optional<std::u16string> text;
  HANDLE data = GetClipboardData(CF_UNICODETEXT);
  if (data == nullptr) return text;
  if (const auto* chars = static_cast<const char16_t*>(GlobalLock(data))) {
    text.emplace(chars);
    GlobalUnlock(data);
  }
  return text;
}

void WriteText(const std::optional<std::u16string>& text) {
  EmptyClipboard();
  if (!text) return;
  const size_t bytes = (text->size() + 1) * sizeof(char16_t);
  HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (memory == nullptr) return;
  if (void* target = GlobalLock(memory)) {
    std::memcpy(target, text->c_str(), bytes);
    GlobalUnlock(memory);
    if (SetClipboardData(CF_UNICODETEXT, memory) != nullptr) return;
  }
  GlobalFree(memory);
}

void CALLBACK GiveBack(HWND, UINT, UINT_PTR, DWORD) {
  KillTimer(nullptr, giveBackTimer);
  giveBackTimer = 0;
  if (!OpenClipboard(nullptr)) return;
  WriteText(kept);
  CloseClipboard();
  kept.reset();
}

}  // namespace

void LendClipboard(std::u16string_view text) noexcept {
  try {
    if (!OpenClipboard(nullptr)) return;
    if (giveBackTimer == 0) kept = ReadText();
    WriteText(std::u16string(text));
    CloseClipboard();
  } catch (...) {
    CloseClipboard();
  }
}

void GiveClipboardBackLater() noexcept {
  if (giveBackTimer != 0) KillTimer(nullptr, giveBackTimer);
  giveBackTimer = SetTimer(nullptr, 0, kGiveBackMs, GiveBack);
}

}  // namespace quilom::shell::win32
