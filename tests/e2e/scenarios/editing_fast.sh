# With Fast Editing one Backspace erases the whole letter typed last, consonant and sign
# together; text that was there before typing is erased a character at a time.
settings_file="$(dirname "$QUILOM_EXE")/Sorvin/Indic Direct Typer/Settings.txt"
cp "$settings_file" "$WORK/settings.orig"
trap 'cp "$WORK/settings.orig" "$settings_file"' EXIT
iconv -f UTF-16 -t UTF-8 "$WORK/settings.orig" | sed '/^`````Fast Editing/{n;s/^0/1/}' |
  iconv -f UTF-8 -t UTF-16LE | { printf '\xff\xfe'; cat; } >"$settings_file"

start_target
start_quilom --start-typing
[ "$(quilom_state options)" = 201001 ] || fail "Fast Editing is not on: '$(quilom_state options)'"
click_target
xdotool type --delay 30 'vaNakkam'
xdotool key BackSpace
expect_text 'வணக்க'
xdotool key BackSpace
expect_text 'வணக்'
xdotool key BackSpace
expect_text 'வண'
xdotool type --delay 30 ' paal'
xdotool key BackSpace
xdotool type --delay 30 'Lu'
expect_text 'வண பாளு'
stop_programs
