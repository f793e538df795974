# The hotkey and a number start typing in that keymap and the same again stops it; the button's
# caption follows. Typing starts off and the hotkey is the shipped Alt+F12.
start_target
start_quilom
[ "$(quilom_state hotkey)" = Alt+F12 ] || fail "the shipped hotkey is Alt+F12, the state says '$(quilom_state hotkey)'"
click_target
xdotool key alt+F12 1
wait_for_state typing on 10 || fail "Alt+F12 then 1 did not start typing"
[ "$(quilom_state keymap)" = Tamil-Unicode-PhoneticTransliteration ] || fail "keymap 1 is '$(quilom_state keymap)'"
[ "$(quilom_state caption)" = "'Stop' Global Typing" ] || fail "the caption is '$(quilom_state caption)' while typing"
xdotool type --delay 30 'ammaa '
expect_text 'அம்மா '
xdotool key alt+F12 2
wait_for_state keymap Tamil-Unicode-TamilNet99 10 || fail "Alt+F12 then 2 did not switch the keymap"
[ "$(quilom_state typing)" = on ] || fail "switching the keymap stopped typing"
sleep 2.5  # Wine draws a balloon up to 3 s after it is asked for
screenshot hotkey_typing_on_balloon
xdotool key alt+F12 2
wait_for_state typing off 10 || fail "the same hotkey and number did not stop typing"
[ "$(quilom_state caption)" = "'Start' Global Typing" ] || fail "the caption is '$(quilom_state caption)' after stopping"
xdotool type --delay 30 'ammaa'
expect_text 'அம்மா ammaa'
# Each digit selects at once: 9 is keymap 9, and the second 9 makes 99, beyond the list, which
# changes nothing.
xdotool key alt+F12 9
wait_for_state typing on 10 || fail "Alt+F12 then 9 did not start typing"
ninth=$(quilom_state keymap)
xdotool key 9
sleep 0.5
[ "$(quilom_state keymap)" = "$ninth" ] && [ "$(quilom_state typing)" = on ] || fail "a number beyond the list changed typing"
xdotool key alt+F12 9
wait_for_state typing off 10 || fail "Alt+F12 then 9 again did not stop typing"
stop_programs
