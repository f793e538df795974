#!/bin/bash
# Helpers for the end-to-end scenarios: start the target and Quilom++ under Wine, act as the
# person at the keyboard with xdotool, and read what the target received.
# Expects: SESSION (the Wine session folder), WORK (this test's folder), QUILOM_EXE, TARGET_EXE,
# SHOTS (where screenshots go).

# shellcheck disable=SC1091
source "$SESSION/env.sh"
mkdir -p "$WORK" "$SHOTS"
rm -f "$WORK"/*

PIDS=()

fail() {
  echo "FAIL: $*" >&2
  [ -f "$WORK/keys.log" ] && { echo "--- target key log (last 30 lines)" >&2; tail -30 "$WORK/keys.log" >&2; }
  exit 1
}

# The Windows name of a Unix path (Wine maps Z: to /).
winpath() { local p; p=$(realpath -m "$1"); echo "Z:${p//\//\\}"; }

repeat_to_length() {  # TEXT LENGTH
  local text=""
  while [ ${#text} -lt "$2" ]; do text+=$1; done
  printf '%s' "${text:0:$2}"
}

wait_for_file() {  # FILE SECONDS
  local deadline=$((SECONDS + $2))
  while [ ! -s "$1" ]; do
    [ $SECONDS -ge $deadline ] && return 1
    sleep 0.05
  done
}

start_target() {
  wine "$TARGET_EXE" "$(winpath "$WORK/text.txt")" "$(winpath "$WORK/keys.log")" "$(winpath "$WORK/stop")" \
    "$(winpath "$WORK/target.ready")" </dev/null >"$WORK/target.out" 2>&1 &
  PIDS+=($!)
  wait_for_file "$WORK/target.ready" 30 || fail "the target did not start"
  TARGET_WID=""
  for _ in 1 2 3; do  # a window going while xdotool looks makes it give up: look again
    TARGET_WID=$(timeout 20 xdotool search --sync --onlyvisible --name '^E2ETarget$' 2>/dev/null | head -1) || true
    [ -n "$TARGET_WID" ] && break
    sleep 0.3
  done
  [ -n "$TARGET_WID" ] || fail "the target's window was not found"
}

# Starts Quilom++.exe with the test switches; extra arguments are passed on.
start_quilom() {
  rm -f "$WORK/quilom.state"
  wine "$QUILOM_EXE" --state-file "$(winpath "$WORK/quilom.state")" --exit-when "$(winpath "$WORK/stop")" "$@" \
    </dev/null >"$WORK/quilom.out" 2>&1 &
  QUILOM_PID=$!
  PIDS+=("$QUILOM_PID")
  wait_for_file "$WORK/quilom.state" 30 || fail "Quilom++ did not get ready"
  # A window of the scenario before that goes while xdotool looks at it makes xdotool give up
  # with BadWindow: look again.
  QUILOM_WID=""
  for _ in 1 2 3; do
    QUILOM_WID=$(timeout 20 xdotool search --sync --onlyvisible --name '^Quilom\+\+ : Direct Tamil' 2>/dev/null | head -1) || true
    [ -n "$QUILOM_WID" ] && break
    sleep 0.3
  done
  [ -n "$QUILOM_WID" ] || fail "the Quilom++ window was not found"
}

# One value of Quilom++'s state file: typing, active, iconic, button.
quilom_state() { sed -n "s/^$1=//p" "$WORK/quilom.state" 2>/dev/null; }

wait_for_state() {  # NAME VALUE SECONDS
  local deadline=$((SECONDS + ${3:-10}))
  while [ "$(quilom_state "$1")" != "$2" ]; do
    [ $SECONDS -ge $deadline ] && return 1
    sleep 0.05
  done
}

click_start_stop() {
  local button
  button=$(quilom_state button)
  click_window "$QUILOM_WID" "${button%,*}" "${button#*,}"
}

# A real click makes the window Wine's foreground window; focus alone does not.
click_window() {  # WID X Y
  xdotool windowfocus --sync "$1" 2>/dev/null || true
  xdotool mousemove --window "$1" "$2" "$3" click 1
  sleep 0.3
}

click_target() { click_window "$TARGET_WID" 300 120; }

target_text() { cat "$WORK/text.txt" 2>/dev/null; }

wait_for_text() {  # EXPECTED SECONDS
  local deadline=$((SECONDS + ${2:-10}))
  while [ "$(target_text)" != "$1" ]; do
    [ $SECONDS -ge $deadline ] && return 1
    sleep 0.1
  done
}

# For long runs on a busy machine: waits as long as the text keeps changing, and fails only
# when it has stood still for STALL_SECONDS without being what was expected.
expect_text_settles() {  # EXPECTED STALL_SECONDS
  local last="" current deadline=$((SECONDS + $2))
  while :; do
    current=$(target_text)
    [ "$current" = "$1" ] && return 0
    if [ "$current" != "$last" ]; then
      last=$current
      deadline=$((SECONDS + $2))
    fi
    [ $SECONDS -ge $deadline ] && fail "target text stopped at ${#current} characters, expected ${#1}: '$current'"
    sleep 0.2
  done
}

expect_text() {  # EXPECTED [SECONDS]
  wait_for_text "$1" "${2:-10}" || fail "target text is '$(target_text)', expected '$1'"
}

screenshot() {
  sleep 0.3  # let the last change be drawn
  import -window root "$SHOTS/$1.png" 2>/dev/null || echo "screenshot $1 failed" >&2
}

# No Latin letter may reach the target as a character while Tamil is being typed: a key that
# was both typed by the engine and passed on would show up here.
expect_no_latin_characters() {
  if grep -E '^CHAR 0x00(4[1-9A-F]|5[0-9A]|6[1-9A-F]|7[0-9A])' "$WORK/keys.log" >/dev/null; then
    fail "Latin characters reached the target: $(grep -cE '^CHAR 0x00[4-7]' "$WORK/keys.log")"
  fi
}

stop_programs() {
  touch "$WORK/stop"
  local pid
  for pid in "${PIDS[@]}"; do
    for _ in $(seq 100); do kill -0 "$pid" 2>/dev/null || break; sleep 0.1; done
    kill "$pid" 2>/dev/null || true
  done
  # A copy started through "wine start" is no child of ours: wait for its window to go, or the
  # next test's copy would find it running and end at once.
  for _ in $(seq 100); do
    xdotool search --onlyvisible --name '^Quilom\+\+ : Direct Tamil' >/dev/null 2>&1 || break
    sleep 0.1
  done
}
trap stop_programs EXIT
