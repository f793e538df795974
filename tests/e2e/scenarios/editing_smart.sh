# With Smart Editing a Backspace corrects the letter being typed: the next key forms the
# syllable again instead of starting a letter of its own. The shipped settings come back after.
settings_file="$(dirname "$QUILOM_EXE")/Sorvin/Indic Direct Typer/Settings.txt"
cp "$settings_file" "$WORK/settings.orig"
trap 'cp "$WORK/settings.orig" "$settings_file"' EXIT
iconv -f UTF-16 -t UTF-8 "$WORK/settings.orig" | sed '/^`````Smart Editing/{n;s/^0/1/}' |
  iconv -f UTF-8 -t UTF-16LE | { printf '\xff\xfe'; cat; } >"$settings_file"

start_target
start_quilom --start-typing
[ "$(quilom_state options)" = 200101 ] || fail "Smart Editing is not on: '$(quilom_state options)'"
screenshot main_window_smart_editing
click_target
xdotool type --delay 30 'kaa'
xdotool key BackSpace
xdotool type --delay 30 'i paNam'
xdotool key --delay 30 BackSpace BackSpace
xdotool type --delay 30 'di '
expect_text 'கி பணடி '
screenshot smart_editing_corrected
stop_programs
