# Ctrl+C, Alt+F and Win+E reach the application as themselves while typing is on.
start_target
start_quilom --start-typing
click_target
xdotool key --delay 60 ctrl+c alt+f super+e
sleep 0.5
grep -q '^KEYDOWN 0x0043 ctrl=1' "$WORK/keys.log" || fail "Ctrl+C did not reach the target"
grep -q '^SYSKEYDOWN 0x0046 ctrl=0 alt=1' "$WORK/keys.log" || fail "Alt+F did not reach the target"
grep -q '^KEYDOWN 0x0045 .*win=1' "$WORK/keys.log" || fail "Win+E did not reach the target"
# Typing goes on normally afterwards. (Wine's edit box also takes Win+E's letter as text.)
xdotool type --delay 30 'kaa'
expect_text 'eகா'
# Enter reaches the application and breaks the composition: the "a" after it starts afresh
# instead of lengthening the vowel before the line break.
xdotool key Return
xdotool type --delay 30 'a'
expect_text $'eகா\r\nஅ'
