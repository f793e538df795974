# 2,000 keys at 30 keys a second arrive complete and in order.
keys=$(repeat_to_length 'vaNakkam thamizh naan kadaikku pOnEn appaa ammaa paadam padikkirEn ' 2000)
printf '%s' "$keys" >"$WORK/keys.txt"
expected=$("$EXPECTED_TYPING" "$DATA_ROOT" "$WORK/keys.txt")
start_target
start_quilom --start-typing
click_target
started=$(date +%s%N)
xdotool type --delay 33 --file "$WORK/keys.txt"
typed_ms=$((($(date +%s%N) - started) / 1000000))
expect_text "$expected" 30
echo "2000 keys typed in $typed_ms ms: $((2000 * 1000 / typed_ms)) keys a second"
expect_no_latin_characters
# Typing this steady is no sign of a dropped hook: the health watch must not have stepped in.
[ "$(quilom_state reinstalls)" = 0 ] || fail "the hooks were re-installed $(quilom_state reinstalls) times"
