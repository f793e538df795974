# 200 keys with no delay at all arrive complete and in order.
keys=$(repeat_to_length 'kadaikku pOnEn ammaa ' 200)
printf '%s' "$keys" >"$WORK/keys.txt"
expected=$("$EXPECTED_TYPING" "$DATA_ROOT" "$WORK/keys.txt")
start_target
start_quilom --start-typing
click_target
xdotool type --delay 0 --file "$WORK/keys.txt"
expect_text "$expected" 20
expect_no_latin_characters
# Typing this steady is no sign of a dropped hook: the health watch must not have stepped in.
[ "$(quilom_state reinstalls)" = 0 ] || fail "the hooks were re-installed $(quilom_state reinstalls) times"
