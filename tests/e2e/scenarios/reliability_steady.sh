# 2,000 keys at 30 keys a second arrive complete and in order.
keys=$(repeat_to_length 'vaNakkam thamizh naan kadaikku pOnEn appaa ammaa paadam padikkirEn ' 2000)
printf '%s' "$keys" >"$WORK/keys.txt"
expected=$("$EXPECTED_TYPING" "$DATA_ROOT" "$WORK/keys.txt")
start_target
start_quilom --start-typing
click_target
xdotool type --delay 33 --file "$WORK/keys.txt"
expect_text "$expected" 30
expect_no_latin_characters
