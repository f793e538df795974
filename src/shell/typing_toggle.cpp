#include "shell/typing_toggle.hpp"

#include "shell/keymap_selection.hpp"

namespace quilom::shell {

ToggleVerdict DecideToggle(int focusedMode) {
  return focusedMode == kFocusedOnOneApplication ? ToggleVerdict::ShowFocusedModeMessage
                                                 : ToggleVerdict::SelectFloaterKeymap;
}

std::u16string_view StartStopCaption(bool globalHookInstalled) {
  return globalHookInstalled ? u"'Stop' Global Typing" : u"'Start' Global Typing";
}

}  // namespace quilom::shell
