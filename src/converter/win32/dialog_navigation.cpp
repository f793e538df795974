#include <algorithm>
#include <vector>

#include "converter/win32/converter_window_class.hpp"

namespace quilom::converter::win32 {
namespace {

HHOOK messageHook = nullptr;
std::vector<HWND> navigable;

// Runs for every message this thread's loop takes from its queue. Keyboard messages for one of
// our windows go through IsDialogMessage; a message it handled becomes WM_NULL so that the
// loop's own dispatch does nothing more with it.
LRESULT CALLBACK OnQueuedMessage(int code, WPARAM removed, LPARAM lParam) {
  auto* message = reinterpret_cast<MSG*>(lParam);
  if (code == HC_ACTION && removed == PM_REMOVE && message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST) {
    for (HWND window : navigable) {
      if ((message->hwnd == window || IsChild(window, message->hwnd)) && IsDialogMessageW(window, message)) {
        message->message = WM_NULL;
        break;
      }
    }
  }
  return CallNextHookEx(messageHook, code, removed, lParam);
}

}  // namespace

void StartDialogNavigation(HWND window) {
  navigable.push_back(window);
  if (messageHook == nullptr) {
    messageHook = SetWindowsHookExW(WH_GETMESSAGE, OnQueuedMessage, nullptr, GetCurrentThreadId());
  }
}

void StopDialogNavigation(HWND window) {
  navigable.erase(std::remove(navigable.begin(), navigable.end(), window), navigable.end());
  if (navigable.empty() && messageHook != nullptr) {
    UnhookWindowsHookEx(messageHook);
    messageHook = nullptr;
  }
}

}  // namespace quilom::converter::win32
