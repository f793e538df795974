#pragma once

#include <string_view>

// The texts by which the running program is known to itself and to a second start.
namespace quilom::shell {

// The main window's fixed caption: shown to the user and used, with the class name, to find a
// running copy. A copy whose caption was changed is deliberately not found.
inline constexpr std::u16string_view kMainWindowCaption =
    u"Quilom++ : Direct Tamil typing in all applications, or in a single application, with a set of tools";

// Our own window class rather than a UI runtime's generic form class: a generic class name is
// shared by every program of that runtime, so a second start could find and front a stranger's
// window that happened to carry our caption. Ours names the program and nothing else.
inline constexpr std::u16string_view kMainWindowClass = u"QuilomPlusPlus.BelovedOska";

// The named mutex that tells a second start that a copy is running (per user session).
inline constexpr std::u16string_view kSingleInstanceMutex = u"Local\\QuilomPlusPlus.SingleInstance";

// The start/stop button's caption always follows whether the global keyboard hook is installed.
constexpr std::u16string_view StartStopCaption(bool globalHookInstalled) {
  return globalHookInstalled ? u"'Stop' Global Typing" : u"'Start' Global Typing";
}

}  // namespace quilom::shell
