# A click on an option writes the main window's Settings.txt as UTF-16LE with its mark, a hotkey
# set in the window works at once, and a restart shows both as they were left. The shipped file
# is put back afterwards.
settings_file="$(dirname "$QUILOM_EXE")/Sorvin/Indic Direct Typer/Settings.txt"
cp "$settings_file" "$WORK/settings.orig"
trap 'cp "$WORK/settings.orig" "$settings_file"' EXIT
stored() { iconv -f UTF-16 -t UTF-8 "$settings_file" | tr -d '\r' | grep -A1 -x "\`\`\`\`\`$1" | tail -1; }

start_target
start_quilom
[ "$(quilom_state options)" = 200001 ] || fail "the shipped options are '$(quilom_state options)'"
box=$(quilom_state fastbox)
click_window "$QUILOM_WID" "${box%,*}" "${box#*,}"
wait_for_state options 201001 5 || fail "Fast Editing did not take: '$(quilom_state options)'"
[ "$(head -c 2 "$settings_file" | od -An -tx1 | tr -d ' ')" = fffe ] || fail "Settings.txt lost its UTF-16LE mark"
[ "$(stored 'Fast Editing')" = 1 ] || fail "Settings.txt does not hold Fast Editing = 1"

list=$(quilom_state hotkeylist)
click_window "$QUILOM_WID" "${list%,*}" "${list#*,}"
# The list searches by first letter only: F goes to F1, eight steps down to F9.
xdotool type F
xdotool key --delay 50 Down Down Down Down Down Down Down Down
set_button=$(quilom_state sethotkey)
click_window "$QUILOM_WID" "${set_button%,*}" "${set_button#*,}"
wait_for_state hotkey F9 5 || fail "the set-hotkey button did not take F9: '$(quilom_state hotkey)'"
[ "$(stored 'Present Hotkey')" = F9 ] || fail "Settings.txt does not hold Present Hotkey = F9"
click_target
xdotool key F9 1
wait_for_state typing on 10 || fail "F9 then 1 did not start typing right after it was set"
xdotool type --delay 30 'ammaa'
expect_text 'அம்மா'
stop_programs

rm -f "$WORK/stop"  # or the new copy would end as soon as it starts
start_quilom
[ "$(quilom_state options)" = 201001 ] || fail "after a restart the options are '$(quilom_state options)'"
[ "$(quilom_state hotkey)" = F9 ] || fail "after a restart the hotkey is '$(quilom_state hotkey)'"
screenshot main_window_options_restored
stop_programs
