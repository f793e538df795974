# The start/stop button switches typing; with typing off, Latin letters pass untouched.
start_target
start_quilom
[ "$(quilom_state typing)" = off ] || fail "typing must start off"
screenshot main_window_typing_off
click_start_stop
wait_for_state typing on 10 || fail "the button did not start typing"
screenshot main_window_typing_on
click_target
xdotool type --delay 30 'ammaa '
expect_text 'அம்மா '
click_start_stop
wait_for_state typing off 10 || fail "the button did not stop typing"
click_target
xdotool type --delay 30 'ammaa'
expect_text 'அம்மா ammaa'
