# A damaged Settings.txt survives a start and an option click: the program says once that it
# mended the file, keeps the damaged bytes beside it as Settings.txt.damaged-<date>, keeps every
# key the user had set and puts back the one that was cut off. Then a missing Settings.txt is
# made again at start, with one notice and no more at the next click. The shipped file is put
# back afterwards.
settings_dir="$(dirname "$QUILOM_EXE")/Sorvin/Indic Direct Typer"
settings_file="$settings_dir/Settings.txt"
cp "$settings_file" "$WORK/settings.orig"
restore() {
  stop_programs
  cp "$WORK/settings.orig" "$settings_file"
  rm -f "$settings_dir"/Settings.txt.damaged-*
}
trap restore EXIT
rm -f "$settings_dir"/Settings.txt.damaged-*
stored() { iconv -f UTF-16 -t UTF-8 "$settings_file" | tr -d '\r' | grep -A1 -x "\`\`\`\`\`$1" | tail -1; }

# The user had chosen Fast Editing and the hotkey F9; the file was cut in the middle of its last key.
printf '\xff\xfe' >"$settings_file"
printf '%s\r\n' 'Quilom++ - Indic Direct Typer settings' '`````Global Typing' 1 '`````Instant Typing' 0 \
  '`````Fast Editing' 1 '`````Smart Editing' 0 '`````CopyPaste Editing' 0 '`````Include Hotkeys' 1 \
  '`````Present Hotkey' F9 | iconv -f UTF-8 -t UTF-16LE >>"$settings_file"
printf '`````StartQuilom++ With' | iconv -f UTF-8 -t UTF-16LE >>"$settings_file"
cp "$settings_file" "$WORK/settings.damaged"

notice_windows() { xdotool search --onlyvisible --name '^Quilom\+\+$' 2>/dev/null; }

# Starts Quilom++, which stops at its notice before its window is up; the notice is read and
# closed as a person would.
start_quilom_with_notice() {  # SCREENSHOT
  rm -f "$WORK/quilom.state"
  wine "$QUILOM_EXE" --state-file "$(winpath "$WORK/quilom.state")" --exit-when "$(winpath "$WORK/stop")" \
    </dev/null >"$WORK/quilom.out" 2>&1 &
  PIDS+=($!)
  local box
  box=$(timeout 30 xdotool search --sync --onlyvisible --name '^Quilom\+\+$' 2>/dev/null | head -1) ||
    fail "no notice was shown at start"
  screenshot "$1"
  xdotool windowfocus --sync "$box" 2>/dev/null || true
  xdotool key --window "$box" Return 2>/dev/null || xdotool key Return
  wait_for_file "$WORK/quilom.state" 30 || fail "Quilom++ did not get ready after its notice"
  QUILOM_WID=$(timeout 20 xdotool search --sync --onlyvisible --name '^Quilom\+\+ : Direct Tamil' | head -1)
  [ -n "$QUILOM_WID" ] || fail "the Quilom++ window was not found"
}

click_fast_editing() {
  local box
  box=$(quilom_state fastbox)
  click_window "$QUILOM_WID" "${box%,*}" "${box#*,}"
}

start_quilom_with_notice settings_damaged_notice
copies=("$settings_dir"/Settings.txt.damaged-*)
[ ${#copies[@]} -eq 1 ] && [ -f "${copies[0]}" ] || fail "no single damaged copy beside Settings.txt: ${copies[*]}"
cmp -s "${copies[0]}" "$WORK/settings.damaged" || fail "the damaged copy is not the damaged file byte for byte"
[ "$(quilom_state hotkey)" = F9 ] || fail "the hotkey the user set was lost: '$(quilom_state hotkey)'"
[ "$(quilom_state options)" = 201001 ] || fail "the options the user set were lost: '$(quilom_state options)'"
[ "$(stored 'StartQuilom++ WithWindows')" = 0 ] || fail "the key that was cut off did not come back"

click_fast_editing
wait_for_state options 200001 5 || fail "Fast Editing did not take: '$(quilom_state options)'"
sleep 1
[ -z "$(notice_windows)" ] || fail "a notice came again at the option click"
[ "$(stored 'Fast Editing')" = 0 ] || fail "the click was not saved"
[ "$(stored 'Present Hotkey')" = F9 ] || fail "the click's save dropped the hotkey the user set"
[ "$(stored 'StartQuilom++ WithWindows')" = 0 ] || fail "the click's save dropped a key"
screenshot settings_damaged_after_click
stop_programs

# A missing file: made again from the shipped settings, with one notice, none at the next click.
rm -f "$WORK/stop" "$settings_file"
start_quilom_with_notice settings_missing_notice
[ -f "$settings_file" ] || fail "the missing Settings.txt was not made again"
cmp -s "$settings_file" "$WORK/settings.orig" || fail "the Settings.txt made again is not the shipped one"
click_fast_editing
wait_for_state options 201001 5 || fail "Fast Editing did not take: '$(quilom_state options)'"
sleep 1
[ -z "$(notice_windows)" ] || fail "a notice came again at the option click"
[ "$(stored 'Fast Editing')" = 1 ] || fail "the click on the file made again was not saved"
stop_programs
