# With CopyPaste Editing the text arrives through the clipboard and Ctrl+V, not as Unicode key
# presses, and the user's clipboard holds its own text again afterwards.
settings_file="$(dirname "$QUILOM_EXE")/Sorvin/Indic Direct Typer/Settings.txt"
cp "$settings_file" "$WORK/settings.orig"
trap 'cp "$WORK/settings.orig" "$settings_file"' EXIT
iconv -f UTF-16 -t UTF-8 "$WORK/settings.orig" | sed '/^`````CopyPaste Editing/{n;s/^0/1/}' |
  iconv -f UTF-8 -t UTF-16LE | { printf '\xff\xfe'; cat; } >"$settings_file"

start_target
start_quilom --start-typing
[ "$(quilom_state options)" = 200011 ] || fail "CopyPaste Editing is not on: '$(quilom_state options)'"
printf 'the user said this' | xclip -selection clipboard
click_target
xdotool type --delay 120 'vaNakkam '
expect_text 'வணக்கம் '
grep -q '0x0056' "$WORK/keys.log" || fail "no V key reached the target: the text was not pasted"
! grep -q '0x00E7' "$WORK/keys.log" || fail "Unicode key presses reached the target"
sleep 1
[ "$(xclip -o -selection clipboard)" = 'the user said this' ] || fail "the clipboard holds '$(xclip -o -selection clipboard)'"
stop_programs
