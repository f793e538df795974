# With Include Hotkeys unticked the hotkey alone switches typing on and off and the digits
# after it are text, in Tamil typing and out of it.
settings_file="$(dirname "$QUILOM_EXE")/Sorvin/Indic Direct Typer/Settings.txt"
cp "$settings_file" "$WORK/settings.orig"
trap 'cp "$WORK/settings.orig" "$settings_file"' EXIT
iconv -f UTF-16 -t UTF-8 "$WORK/settings.orig" | sed '/^`````Include Hotkeys/{n;s/^1/0/}' |
  iconv -f UTF-8 -t UTF-16LE | { printf '\xff\xfe'; cat; } >"$settings_file"

start_target
start_quilom
[ "$(quilom_state options)" = 200000 ] || fail "Include Hotkeys is not off: '$(quilom_state options)'"
click_target
xdotool key alt+F12
wait_for_state typing on 10 || fail "Alt+F12 alone did not start typing"
xdotool type --delay 30 '2 ammaa '
expect_text '2 அம்மா '
[ "$(quilom_state keymap)" = Tamil-Unicode-PhoneticTransliteration ] || fail "the digit chose '$(quilom_state keymap)'"
xdotool key alt+F12
wait_for_state typing off 10 || fail "Alt+F12 alone did not stop typing"
xdotool type --delay 30 '1 ammaa'
expect_text '2 அம்மா 1 ammaa'
[ "$(quilom_state typing)" = off ] || fail "the digit after the hotkey started typing"
stop_programs
