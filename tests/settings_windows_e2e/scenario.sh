#!/usr/bin/env bash
# One end-to-end scenario of the typing settings windows, run under Wine:
#   scenario.sh SESSION_DIR BIN_DIR OUTPUT_DIR NAME
# NAME: qmset, qmset2, catalogue. Screenshots go to OUTPUT_DIR/NAME*.png. Each run works on a
# private copy of the data tree, so the settings it changes never leak.
set -euo pipefail
session=$1
bin=$2
out=$3
name=$4
# shellcheck disable=SC1091
source "$session/env"
mkdir -p "$out"
work=$(mktemp -d "$out/$name.XXXX")
cp -r "$bin/Sorvin" "$work/Sorvin"
data_root="Z:$(echo "$work/Sorvin" | sed 's#/#\\#g')"
inis=$work/Sorvin/pelandr/inis
inps="$work/Sorvin/Indic Direct Typer/inps"

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
open_window() {
  local window=$1 title=$2 wid
  wine "$bin/QuilomSettingsHost.exe" --data "$data_root" --window "$window" >"$work/host.log" 2>&1 </dev/null &
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
    # Extended scheme: ticking it unticks the classic scheme.
    xdotool mousemove --window "$wid" 32 122 click 1
    sleep 0.5
    expect_line qm-settings-2.ini "Extended scheme=1"
    expect_line qm-settings-2.ini "Classic scheme=0"
    # Restore Defaults puts the factory copy back.
    xdotool key alt+r
    answer_box '^Quilom\+\+$' Return
    expect_line qm-settings-2.ini "Extended scheme=0"
    expect_line qm-settings-2.ini "Classic scheme=1"
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
  *)
    fail "unknown scenario"
    ;;
esac
echo "PASS [$name]"
