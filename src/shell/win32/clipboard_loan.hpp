#pragma once

#include <string_view>

// The clipboard lent to a pasted edit: the user's text is kept aside while ours is on the
// clipboard, and put back a little later, once the application has read ours (Ctrl+V is only
// queued when SendInput returns). Pastes that follow each other before the give-back keep the
// first kept text. Only text survives the loan: a picture on the clipboard is not kept.
namespace quilom::shell::win32 {

// Puts `text` on the clipboard, keeping the user's text unless a loan is still running.
void LendClipboard(std::u16string_view text) noexcept;
// Gives the kept text back after kGiveBackMs on this thread's message loop.
void GiveClipboardBackLater() noexcept;

inline constexpr unsigned kGiveBackMs = 400;

}  // namespace quilom::shell::win32
