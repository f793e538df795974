#include "shell/keymap_selection.hpp"

namespace quilom::shell {

namespace {

void AnnounceOn(SelectionActions& actions, const KeymapRequest& request) {
  actions.keymapToApply = request.SelectedKeymap;
  actions.balloon = SelectionBalloon::TypingOn;
  actions.balloonKeymap = request.SelectedKeymap;
  actions.balloonHotkeyNumber = request.hotkeyNumber;
}

}  // namespace

SelectionActions KeymapSelector::SelectKeymap(const KeymapRequest& request, const ForegroundInfo& foreground) {
  if (state_.SelectionBusy) {
    SelectionActions ignored;
    ignored.ignoredWhileBusy = true;
    return ignored;
  }
  state_.SelectionBusy = true;
  SelectionActions actions = Decide(request, foreground);
  actions.showRowInGrid = request.showInGrid;
  if (request.returnFocus) actions.giveFocusTo = foreground.ForegroundWindow;
  return actions;
}

SelectionActions KeymapSelector::Decide(const KeymapRequest& request, const ForegroundInfo& foreground) {
  SelectionActions actions;
  if (state_.FocusedMode == kFocusedOnOneApplication) {
    const bool otherThread = state_.HookedWindow != 0 && foreground.ForegroundThread != foreground.hookedWindowThread;
    if (otherThread) {
      actions.reinstallHooks = true;
      state_.oneShotFocus = false;
    } else if (!state_.globalHookInstalled) {
      actions.installHooks = true;
    }
    AnnounceOn(actions, request);
    pendingKeymap_ = request.SelectedKeymap;
    return actions;
  }
  if (state_.globalHookInstalled && request.SelectedKeymap == state_.ActiveKeymap) {
    actions.removeHooks = true;
    actions.balloon = SelectionBalloon::TypingOff;
    actions.balloonKeymap = state_.ActiveKeymap;
    actions.balloonHotkeyNumber = request.hotkeyNumber;
    pendingKeymap_ = state_.ActiveKeymap;
    return actions;
  }
  actions.installHooks = !state_.globalHookInstalled;
  AnnounceOn(actions, request);
  pendingKeymap_ = request.SelectedKeymap;
  return actions;
}

void KeymapSelector::FinishSelection(bool globalHookInstalled) {
  if (!state_.SelectionBusy) return;
  state_.globalHookInstalled = globalHookInstalled;
  if (globalHookInstalled) state_.ActiveKeymap = pendingKeymap_;
  pendingKeymap_.clear();
  state_.SelectionBusy = false;
}

}  // namespace quilom::shell
