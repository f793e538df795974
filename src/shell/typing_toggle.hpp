#pragma once

#include <string>
#include <string_view>

// The start/stop button and the tray menu's start/stop entry.
namespace quilom::shell {

inline constexpr std::u16string_view kFocusedModeToggleMessage =
    u"If you wish to utilise this facility, then you need to necessarily select the option 'Enable typing in "
    u"all applications'";

// What the start/stop command does in the given hooking mode: in focused mode it only shows
// kFocusedModeToggleMessage; otherwise the floater's chosen keymap goes to SelectKeymap.
enum class ToggleVerdict { ShowFocusedModeMessage, SelectFloaterKeymap };

ToggleVerdict DecideToggle(int focusedMode);

// The button caption for the hook state the button must match after every change.
std::u16string_view StartStopCaption(bool globalHookInstalled);

}  // namespace quilom::shell
