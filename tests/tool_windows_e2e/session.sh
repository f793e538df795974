#!/usr/bin/env bash
# One Xvfb display and one private Wine prefix for the tool windows' end-to-end tests.
#   session.sh start SESSION_DIR   starts them and writes SESSION_DIR/env for the scenarios
#   session.sh stop SESSION_DIR    ends only what start started
# The prefix is kept between runs (making one takes a while); the display is not.
set -euo pipefail
action=$1
session=$2
mkdir -p "$session"
prefix=$session/prefix

stop() {
  if [ -f "$session/env" ]; then
    # shellcheck disable=SC1091
    source "$session/env"
    WINEPREFIX=$prefix wineserver -k 2>/dev/null || true
    WINEPREFIX=$prefix wineserver -w 2>/dev/null || true
    if [ -n "${XVFB_PID:-}" ] && kill -0 "$XVFB_PID" 2>/dev/null; then
      kill "$XVFB_PID"
      while kill -0 "$XVFB_PID" 2>/dev/null; do sleep 0.1; done
    fi
    rm -f "$session/env"
  fi
}

if [ "$action" = stop ]; then
  stop
  exit 0
fi

stop
rm -f "$session/display.txt"
setsid Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$session/display.txt" >"$session/xvfb.log" 2>&1 &
xvfb_pid=$!
for _ in $(seq 200); do [ -s "$session/display.txt" ] && break; sleep 0.05; done
display=:$(head -1 "$session/display.txt")

export DISPLAY=$display WINEPREFIX=$prefix WINEARCH=win64 WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=d"
if [ ! -f "$prefix/system.reg" ]; then
  wineboot -i >/dev/null 2>&1 </dev/null
fi
# A virtual desktop: windows close at once (no 2 s wait for a window manager).
wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >/dev/null 2>&1
wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1200x760 /f >/dev/null 2>&1
wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d 96 /f >/dev/null 2>&1
wineserver -w
# Every process left running must let go of the caller's output, or CTest waits for it.
wineserver -p >/dev/null 2>&1 </dev/null
cat >"$session/env" <<ENV
export DISPLAY=$display WINEPREFIX=$prefix WINEARCH=win64 WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=d"
XVFB_PID=$xvfb_pid
ENV
echo "session ready on $display"
