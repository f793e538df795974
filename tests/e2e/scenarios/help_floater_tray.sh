# Help opens inside the program when nothing outside can show it; the floater comes up topmost
# as its settings ask; the tray's language letter is drawn with an installed face that has it.
# Typing is on, so the program is worked with the mouse and with keys that are not typing keys.
start_target
start_quilom --start-typing
[ "$(quilom_state typing)" = on ] || fail "typing did not start"
face=$(quilom_state trayface)
# This prefix has no Windows fonts: only a free Tamil face can hold the letter.
[[ "$face" == *Tamil* ]] || fail "the tray letter is drawn with '$face', which has no Tamil"
sleep 6  # the balloon goes; the icon stays
screenshot tray_language_letter

find_window() {  # TITLE_PATTERN
  local found=""
  for _ in $(seq 50); do
    found=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1) || true
    [ -n "$found" ] && break
    sleep 0.2
  done
  echo "$found"
}

close_help() {  # WID
  xdotool windowclose "$1" 2>/dev/null || true
  for _ in $(seq 50); do xdotool search --onlyvisible --name '^Quilom\+\+ Help' >/dev/null 2>&1 || return 0; sleep 0.1; done
  fail "the help window did not close"
}

button=$(quilom_state chartbutton)
click_window "$QUILOM_WID" "${button%,*}" "${button#*,}"
chart=$(find_window '^Quilom\+\+ Help - Tamil-Unicode-PhoneticTransliteration$')
[ -n "$chart" ] || { screenshot keymap_chart_missing; fail "Keymap chart showed no window of its own"; }
screenshot keymap_chart_inside
close_help "$chart"

button=$(quilom_state guidebutton)
click_window "$QUILOM_WID" "${button%,*}" "${button#*,}"
help=$(find_window '^Quilom\+\+ Help - getting-started$')
[ -n "$help" ] || fail "Getting started showed no window of its own"
[ -z "$(find_window '^DT-help')" ] || fail "an error report came up for the help page"
screenshot getting_started_inside
close_help "$help"

# F10 reaches the menu bar under Wine; arrows and Return are no typing keys.
click_window "$QUILOM_WID" 200 12
xdotool key --delay 150 F10 Down Down Return
wait_for_state floater 110 10 || fail "the floater is '$(quilom_state floater)', expected shown and topmost (110)"
click_target
sleep 0.5
screenshot floater_above_target
[ "$(quilom_state floater)" = 110 ] || fail "the floater lost its place on top: '$(quilom_state floater)'"
stop_programs
