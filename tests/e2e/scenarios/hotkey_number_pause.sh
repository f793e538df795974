# The keymap number after the hotkey ends at a pause: "Alt+F12, 1", a pause of more than a
# second, then "25 vaNakkam" types "25 வணக்கம்" in keymap 1 instead of choosing keymap 12
# and eating the digits. Typing starts off and the hotkey is the shipped Alt+F12.
start_target
start_quilom
click_target
xdotool key alt+F12 1
wait_for_state typing on 10 || fail "Alt+F12 then 1 did not start typing"
[ "$(quilom_state keymap)" = Tamil-Unicode-PhoneticTransliteration ] || fail "keymap 1 is '$(quilom_state keymap)'"
sleep 1.5
xdotool type --delay 40 '25 vaNakkam'
expect_text '25 வணக்கம்'
[ "$(quilom_state keymap)" = Tamil-Unicode-PhoneticTransliteration ] ||
  fail "the digits after the pause chose the keymap '$(quilom_state keymap)'"
[ "$(quilom_state typing)" = on ] || fail "the digits after the pause stopped typing"
screenshot hotkey_number_pause_digits_typed
# Digits typed at once still make one number: "1" chooses keymap 1, which is in use, so typing
# goes off, and the "2" right after it makes 12, which turns typing on again in keymap 12.
xdotool key alt+F12 1 2
sleep 0.5
wait_for_state typing on 10 || fail "Alt+F12, 1, 2 at once did not end in typing on"
[ "$(quilom_state keymap)" != Tamil-Unicode-PhoneticTransliteration ] ||
  fail "Alt+F12, 1, 2 at once did not reach keymap 12"
stop_programs
