# A click on an option writes the main window's Settings.txt as UTF-16LE with its mark, and a
# restart shows the option as it was left. The shipped file is put back afterwards.
settings_file="$(dirname "$QUILOM_EXE")/Sorvin/Indic Direct Typer/Settings.txt"
cp "$settings_file" "$WORK/settings.orig"
trap 'cp "$WORK/settings.orig" "$settings_file"' EXIT
start_quilom
[ "$(quilom_state options)" = 200001 ] || fail "the shipped options are '$(quilom_state options)'"
box=$(quilom_state fastbox)
click_window "$QUILOM_WID" "${box%,*}" "${box#*,}"
wait_for_state options 201001 5 || fail "Fast Editing did not take: '$(quilom_state options)'"
[ "$(head -c 2 "$settings_file" | od -An -tx1 | tr -d ' ')" = fffe ] || fail "Settings.txt lost its UTF-16LE mark"
iconv -f UTF-16 -t UTF-8 "$settings_file" | tr -d '\r' | grep -A1 -x '`````Fast Editing' | tail -1 | grep -qx 1 ||
  fail "Settings.txt does not hold Fast Editing = 1"
stop_programs
start_quilom
[ "$(quilom_state options)" = 201001 ] || fail "after a restart the options are '$(quilom_state options)'"
screenshot main_window_fast_editing_restored
stop_programs
