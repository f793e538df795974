#!/bin/bash
# One Xvfb display and one private Wine prefix shared by every end-to-end test of a CTest run.
#   wine_session.sh start SESSION_DIR [EXE]  creates both; writes SESSION_DIR/env.sh. With EXE
#                                            given and missing, starts nothing (the tests skip).
#   wine_session.sh stop SESSION_DIR     ends the Wine server and the display
# Only the processes started here are ever stopped (by their recorded ids).
set -euo pipefail

action=$1
session=$2
mkdir -p "$session"

start() {
  stop_quietly
  local display_file=$session/display.txt
  rm -f "$display_file"
  # setsid and closed descriptors: CTest waits for every holder of its pipes to go.
  setsid Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$display_file" </dev/null >"$session/xvfb.log" 2>&1 &
  local xvfb_pid=$!
  for _ in $(seq 200); do [ -s "$display_file" ] && break; sleep 0.05; done
  [ -s "$display_file" ] || { echo "Xvfb did not start (see $session/xvfb.log)" >&2; exit 1; }
  cat >"$session/env.sh" <<ENV
export DISPLAY=:$(head -1 "$display_file")
export WINEPREFIX=$session/prefix
export WINEARCH=win64
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=d"
XVFB_PID=$xvfb_pid
ENV
  # shellcheck disable=SC1091
  source "$session/env.sh"
  if [ ! -f "$WINEPREFIX/system.reg" ]; then
    wineboot -i </dev/null >"$session/wineboot.log" 2>&1
  fi
  # A virtual desktop: hiding a window takes 50 ms there instead of 2 s on a bare display.
  wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f </dev/null >>"$session/wineboot.log" 2>&1
  wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1024x700 /f </dev/null >>"$session/wineboot.log" 2>&1
  wineserver -w
  # Keep one server alive across the tests: every test then starts in about half the time.
  setsid wineserver -p </dev/null >/dev/null 2>&1 || true
  echo "Wine session ready on $DISPLAY with prefix $WINEPREFIX"
}

stop_quietly() {
  [ -f "$session/env.sh" ] || return 0
  # shellcheck disable=SC1091
  source "$session/env.sh"
  wineserver -k >/dev/null 2>&1 || true
  timeout 20 wineserver -w >/dev/null 2>&1 || true
  if [ -n "${XVFB_PID:-}" ] && kill -0 "$XVFB_PID" 2>/dev/null; then
    kill "$XVFB_PID" 2>/dev/null || true
    for _ in $(seq 100); do kill -0 "$XVFB_PID" 2>/dev/null || break; sleep 0.05; done
  fi
  rm -f "$session/env.sh"
}

case $action in
  start)
    if [ -n "${3:-}" ] && [ ! -f "$3" ]; then
      stop_quietly
      echo "No Wine session: $3 is missing, so the end-to-end tests will be skipped."
      exit 0
    fi
    start ;;
  stop) stop_quietly; echo "Wine session stopped" ;;
  *) echo "usage: $0 start|stop SESSION_DIR" >&2; exit 2 ;;
esac
