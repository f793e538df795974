#!/usr/bin/env bash
# One end-to-end scenario of the typing settings windows, run under Wine:
#   scenario.sh SESSION_DIR BIN_DIR OUTPUT_DIR NAME [TARGET_EXE]
# NAME: qmset, qmset2, catalogue (the host program alone); finalize_restart, floater_focused
# (Quilom++.exe, with the typing e2e helpers and target). Screenshots go to OUTPUT_DIR/NAME*.png.
# Each run works on private copies of the programs and the data tree, so the settings it
# changes never leak.
set -euo pipefail
session=$1
bin=$2
out=$3
name=$4
target_exe=${5:-}
# shellcheck disable=SC1091
source "$session/env.sh"
mkdir -p "$out"
work=$(mktemp -d "$out/$name.XXXX")
cp -r "$bin/Sorvin" "$work/Sorvin"
data_root="Z:$(echo "$work/Sorvin" | sed 's#/#\\#g')"
inis=$work/Sorvin/pelandr/inis
main_data="$work/Sorvin/Indic Direct Typer"
inps="$main_data/inps"

fail() { echo "FAIL [$name]: $*" >&2; shot "$name-failed"; exit 1; }
shot() { import -window root "$out/$1.png" 2>/dev/null || true; }
host_pid() { cat "$work/host.pid" 2>/dev/null || true; }

cleanup() {
  local pid
  pid=$(host_pid)
  if [ -n "$pid" ] && kill -0 "$pid" 2>/dev/null; then kill "$pid" 2>/dev/null || true; fi
  rm -rf "$work"
}
trap cleanup EXIT

# Starts the host with one window and prints the window's X id once it is mapped.
# Waits until one of the host's windows shows a control captioned exactly TEXT.
expect_caption() {
  local _
  for _ in $(seq 50); do
    grep -qxF "$1" "$work/captions.txt" 2>/dev/null && return 0
    sleep 0.1
  done
  fail "no control reads '$1'; the captions are: $(tr '\n' '|' <"$work/captions.txt" 2>/dev/null)"
}

open_window() {
  local window=$1 title=$2 wid
  wine "$bin/QuilomSettingsHost.exe" --data "$data_root" --window "$window" \
    --captions "Z:$(echo "$work/captions.txt" | sed 's#/#\\#g')" >"$work/host.log" 2>&1 </dev/null &
  echo $! >"$work/host.pid"
  wid=$(timeout 30 xdotool search --sync --onlyvisible --name "$title" | head -1) || true
  [ -n "$wid" ] || fail "window '$title' did not open"
  sleep 0.5
  xdotool windowfocus --sync "$wid" 2>/dev/null || true
  # A real click on the caption makes it Wine's foreground window, so keys reach it.
  xdotool mousemove --window "$wid" 200 12 click 1
  sleep 0.3
  echo "$wid"
}

# Waits for a message box (a visible window titled TITLE), answers it with KEY.
answer_box() {
  local title=$1 key=$2 wid
  wid=$(timeout 10 xdotool search --sync --onlyvisible --name "$title" | tail -1) || true
  [ -n "$wid" ] || fail "no message box titled '$title'"
  sleep 0.4
  shot "$name-box"
  xdotool key "$key"
  sleep 0.5
}

close_window() {
  xdotool key Escape
  local pid
  pid=$(host_pid)
  for _ in $(seq 50); do kill -0 "$pid" 2>/dev/null || { rm -f "$work/host.pid"; return 0; }; sleep 0.1; done
  fail "the host did not end after Escape closed its window"
}

utf8() { iconv -f UTF-16 -t UTF-8 "$1" | tr -d '\r'; }
# Sets the value line after "`````KEY" in a settings file, kept UTF-16LE with its mark.
set_value() {  # FILE KEY VALUE
  local text
  text=$(utf8 "$1" | awk -v key="\`\`\`\`\`$2" -v value="$3" 'skip { print value; skip = 0; next }
    $0 == key { skip = 1 } { print }')
  { printf '\xff\xfe'; printf '%s\n' "$text" | sed 's/$/\r/' | iconv -f UTF-8 -t UTF-16LE; } >"$1"
}

# The typing program's scenarios: a private Quilom++.exe beside the private data tree, driven
# with the typing e2e helpers.
use_quilom() {
  [ -f "$bin/Quilom++.exe" ] || fail "$bin/Quilom++.exe is missing"
  [ -f "$target_exe" ] || fail "the target program $target_exe is missing"
  cp "$bin/Quilom++.exe" "$work/Quilom++.exe"
  export SESSION=$session WORK=$work/run SHOTS=$out QUILOM_EXE=$work/Quilom++.exe TARGET_EXE=$target_exe
  # shellcheck disable=SC1091
  source "$(dirname "$0")/../e2e/lib.sh"
  trap 'stop_programs; cleanup' EXIT
}
ini_line() { utf8 "$inis/$1" | grep -x "$2=.*" || true; }
expect_line() {  # FILE LINE
  [ "$(ini_line "$1" "${2%%=*}")" = "$2" ] || fail "$1: expected '$2', found '$(ini_line "$1" "${2%%=*}")'"
}

case $name in
  qmset)
    wid=$(open_window qmset '^Quilom\+\+ - Typing Settings$')
    before=$(md5sum <"$inis/qm-settings.ini")
    # The Excel box (item 3 of GENERAL): answering No stores nothing and leaves it unticked.
    xdotool mousemove --window "$wid" 182 124 click 1
    answer_box '^Quilom\+\+$' n
    [ "$(md5sum <"$inis/qm-settings.ini")" = "$before" ] || fail "answering No changed qm-settings.ini"
    shot qmset
    # Ticking it again and answering Yes stores "1" at once.
    xdotool mousemove --window "$wid" 182 124 click 1
    answer_box '^Quilom\+\+$' y
    expect_line qm-settings.ini StartQuilomMinimized=1
    # TAMIL, then the ExcludeH box: written at once.
    xdotool mousemove --window "$wid" 40 92 click 1
    sleep 0.3
    xdotool mousemove --window "$wid" 182 68 click 1
    sleep 0.5
    expect_line qm-settings.ini ExcludeH=1
    shot qmset-tamil
    close_window
    ;;
  qmset2)
    wid=$(open_window qmset2 '^Quilom\+\+ - More Typing Settings$')
    shot qmset2
    expect_caption "Classic scheme = 1"
    expect_caption "Extended scheme = 0"
    # Extended scheme: ticking it unticks the classic scheme, and both captions say so.
    xdotool mousemove --window "$wid" 32 122 click 1
    sleep 0.5
    expect_line qm-settings-2.ini "Extended scheme=1"
    expect_line qm-settings-2.ini "Classic scheme=0"
    expect_caption "Classic scheme = 0"
    expect_caption "Extended scheme = 1"
    shot qmset2-extended
    # Restore Defaults puts the factory copy back.
    xdotool key alt+r
    answer_box '^Quilom\+\+$' Return
    expect_line qm-settings-2.ini "Extended scheme=0"
    expect_line qm-settings-2.ini "Classic scheme=1"
    expect_caption "Classic scheme = 1"
    close_window
    ;;
  catalogue)
    title='^Quilom\+\+ - Languages, Font Encodings and Keyboards$'
    wid=$(open_window qmAllXmls "$title")
    shot catalogue
    # Filter By language: "e" twice reaches "Except Tamil"; then Finalize.
    xdotool key --delay 150 alt+b e e
    sleep 0.5
    shot catalogue-filtered
    xdotool key alt+z
    answer_box '^Quilom\+\+$' Return
    finalized=$(utf8 "$inps/Settings-Lfks-Finalized.txt")
    [ "$(echo "$finalized" | grep -c .)" -eq 18 ] || fail "expected the 18 LFKs of other languages, got: $finalized"
    if echo "$finalized" | grep -q '^Tamil-'; then fail "a Tamil LFK was finalised: $finalized"; fi
    # Closing writes the window's state; reopening loads the finalised list again.
    close_window
    utf8 "$inps/Settings-Lfks-Screen.txt" | grep -qx 'FileToBe Loaded`````Finalized' ||
      fail "the screen file does not name the Finalized list: $(utf8 "$inps/Settings-Lfks-Screen.txt")"
    wid=$(open_window qmAllXmls "$title")
    # A finder choice that no shown row matches: the message, then the first row of the language.
    xdotool key --delay 150 alt+i t
    answer_box '^Quilom\+\+$' Return
    shot catalogue-reopened
    close_window
    ;;
  finalize_restart)
    use_quilom
    start_quilom
    click_window "$QUILOM_WID" 200 12
    # F10 rather than Alt: under Wine, Alt alone does not reach the menu bar.
    xdotool key --delay 150 F10 s l
    wid=$(timeout 20 xdotool search --sync --onlyvisible --name '^Quilom\+\+ - Languages, Font Encodings' | head -1) ||
      true
    [ -n "$wid" ] || fail "Settings > Languages did not open the catalogue"
    sleep 0.5
    xdotool key --delay 150 alt+b e e alt+z
    answer_box '^Quilom\+\+$' Return
    xdotool key Escape
    stop_programs
    # After a restart the first keymap offered is the first of the finalised list.
    PIDS=()
    rm -f "$WORK/stop"
    start_quilom --start-typing
    wait_for_state keymap Hindi-Unicode-PhoneticTransliteration 10 ||
      fail "keymap 1 after the restart is '$(quilom_state keymap)'"
    echo "keymap 1 after the restart: $(quilom_state keymap)"
    stop_programs
    ;;
  floater_focused)
    # Focused typing, the floater shown at start, beside the target.
    set_value "$main_data/Settings.txt" "Global Typing" 0
    floater="$main_data/Settings - Floater.txt"
    set_value "$floater" "Start with Quilom++" 1
    set_value "$floater" Left 700
    set_value "$floater" Top 20
    use_quilom
    start_target
    start_quilom
    floater_wid=$(timeout 20 xdotool search --sync --onlyvisible --name '^Quilom\+\+ Floater$' | head -1) || true
    [ -n "$floater_wid" ] || fail "the floater did not show at start"
    click_target
    sleep 0.6
    screenshot floater_shown
    # The floater stands where its settings file put it, so its rows are at fixed screen places.
    # "Hook the Typing Window" (the seventh option): select it, then Space ticks it.
    xdotool mousemove 790 402 click 1
    sleep 0.3
    xdotool key space
    answer_box '^Typing Window Hooked$' Return
    # The grid's first row starts typing in that keymap.
    xdotool mousemove 760 148 click 1
    wait_for_state typing on 10 || fail "a grid click did not start typing"
    [ "$(quilom_state keymap)" = Tamil-Unicode-PhoneticTransliteration ] || fail "keymap '$(quilom_state keymap)'"
    screenshot floater_focused
    click_target
    xdotool type --delay 30 'amma '
    expect_text 'அம்ம '
    expect_no_latin_characters
    # A second window is not the hooked one: typing there stays Latin, and Tamil goes on in the
    # hooked window when the user comes back to it.
    second=$WORK/second
    mkdir -p "$second"
    wine "$TARGET_EXE" "$(winpath "$second/text.txt")" "$(winpath "$second/keys.log")" "$(winpath "$second/stop")" \
      "$(winpath "$second/ready")" </dev/null >"$second/out" 2>&1 &
    PIDS+=($!)
    wait_for_file "$second/ready" 30 || fail "the second target did not start"
    second_wid=""
    for _ in $(seq 50); do
      second_wid=$(xdotool search --onlyvisible --name '^E2ETarget$' 2>/dev/null | grep -vx "$TARGET_WID" | head -1) || true
      [ -n "$second_wid" ] && break
      sleep 0.2
    done
    [ -n "$second_wid" ] || fail "the second target's window was not found"
    click_window "$second_wid" 300 120
    xdotool type --delay 30 'amma '
    for _ in $(seq 50); do [ "$(cat "$second/text.txt" 2>/dev/null)" = 'amma ' ] && break; sleep 0.1; done
    [ "$(cat "$second/text.txt" 2>/dev/null)" = 'amma ' ] ||
      fail "the window not hooked got '$(cat "$second/text.txt" 2>/dev/null)', expected Latin 'amma '"
    screenshot floater_second_window
    # Both targets open at the same place: the second goes, so the click finds the first.
    touch "$second/stop"
    for _ in $(seq 50); do xdotool search --onlyvisible --name '^E2ETarget$' 2>/dev/null | grep -qx "$second_wid" || break; sleep 0.1; done
    click_target
    xdotool type --delay 30 'appaa'
    expect_text 'அம்ம அப்பா'
    # An option is written at once: "Follow the Typing", the first row of the options, ticked
    # with a click on its box (typing is on, so Space would be typed, not pressed).
    # Under Wine the closing second target can leave the floater under the main window.
    xdotool mousemove 850 32 click 1
    sleep 0.3
    xdotool mousemove 720 306 click 1
    for _ in $(seq 30); do [ "$(utf8 "$floater" | grep -A1 -x '`````Follow the Typing' | tail -1)" = 1 ] && break; sleep 0.1; done
    [ "$(utf8 "$floater" | grep -A1 -x '`````Follow the Typing' | tail -1)" = 1 ] ||
      fail "ticking Follow the Typing was not written: $(utf8 "$floater" | head -3)"
    # Back to typing in all applications: no window is hooked any more, and the tick goes.
    [ "$(quilom_state floater | cut -c3)" = 1 ] || fail "Hook the Typing Window is not ticked: $(quilom_state floater)"
    radio=$(quilom_state allapps)
    click_window "$QUILOM_WID" "${radio%,*}" "${radio#*,}"
    for _ in $(seq 30); do [ "$(quilom_state floater | cut -c3)" = 0 ] && break; sleep 0.1; done
    screenshot floater_all_applications
    [ "$(quilom_state floater | cut -c3)" = 0 ] ||
      fail "Hook the Typing Window stayed ticked in all-application typing: $(quilom_state floater)"
    ;;
  numerals_live)
    # Tamil numerals ticked in Typing Settings while typing is on: the next digits are Tamil.
    use_quilom
    start_target
    start_quilom
    click_window "$QUILOM_WID" 200 12
    xdotool key --delay 150 F10 s t
    qmset_wid=$(timeout 20 xdotool search --sync --onlyvisible --name '^Quilom\+\+ - Typing Settings$' | head -1) ||
      true
    [ -n "$qmset_wid" ] || fail "Settings > Typing Settings did not open"
    click_target
    xdotool key alt+F12 1
    wait_for_state typing on 10 || fail "the hotkey did not start typing"
    xdotool type --delay 30 'amma 12 '
    expect_text 'அம்ம 12 '
    # TAMIL, then the numerals box.
    click_window "$qmset_wid" 40 92
    click_window "$qmset_wid" 182 97
    expect_line qm-settings.ini TamilNumeralsConversion=1
    screenshot numerals_ticked
    click_target
    xdotool type --delay 30 '34'
    expect_text 'அம்ம 12 ௩௪'
    screenshot numerals_typed
    ;;
  *)
    fail "unknown scenario"
    ;;
esac
echo "PASS [$name]"
