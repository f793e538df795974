#!/usr/bin/env bash
# Installs what is needed, builds and packages everything, then shows Quilom++ at work:
# - with a usable display ($DISPLAY): starts Quilom++.exe under Wine on it, for you to try;
# - without one: starts it in a virtual display, clicks 'Start' Global Typing, clicks into a
#   target window and types a Tamil sentence there as a person would, prints what arrived
#   (UTF-8) and saves a screenshot to build/run-screenshot.png.
# Wine runs in a private prefix under build/, never in ~/.wine.
# QUILOM_RUN_NO_BUILD=1 skips the install and build steps (for a second look); QUILOM_WIN64_BUILD
# and QUILOM_E2E_TARGET point at other builds of the program and of the target window.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD

if [ -z "${QUILOM_RUN_NO_BUILD:-}" ]; then
  bash scripts/install-deps.sh
  bash scripts/build.sh
fi

quilom_exe=${QUILOM_WIN64_BUILD:-$root/build/windows}/bin/Quilom++.exe
target_exe=${QUILOM_E2E_TARGET:-$root/build/linux/tests/e2e/e2e_target.exe}
[ -f "$quilom_exe" ] || { echo "run: $quilom_exe was not built" >&2; exit 1; }
echo "== packages"
find build/packages -maxdepth 1 -name "Quilom++-*" -printf "  %p\n" 2>/dev/null | sort || true

if [ -n "${DISPLAY:-}" ] && xdpyinfo >/dev/null 2>&1; then
  export WINEPREFIX=$root/build/run-prefix WINEARCH=win64 WINEDEBUG=-all
  export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=d"
  echo "== starting Quilom++ on $DISPLAY (Wine prefix $WINEPREFIX)"
  echo "   Press Alt+F12 then 1 (or click 'Start' Global Typing), click into any window and type: vaNakkam thamizh"
  echo "   Alt+F12 then 1 again stops it; the tray icon (bottom right) has the menu."
  exec wine "$quilom_exe"
fi

[ -f "$target_exe" ] || { echo "run: $target_exe was not built" >&2; exit 1; }
session=$root/build/run-session
echo "== no display: typing into a target window in a virtual display"
bash tests/e2e/wine_session.sh start "$session" "$quilom_exe"
export SESSION=$session WORK=$root/build/run-demo SHOTS=$root/build/run-demo-shots
export QUILOM_EXE=$quilom_exe TARGET_EXE=$target_exe
# shellcheck disable=SC1091
source tests/e2e/lib.sh
trap 'stop_programs; bash tests/e2e/wine_session.sh stop "$session" >/dev/null' EXIT

typed='vaNakkam thamizh ulagam! wanRi. '
expected='வணக்கம் தமிழ் உலகம்! நன்றி. '

start_target
start_quilom
echo "   Quilom++ is up; typing is $(quilom_state typing). Clicking 'Start' Global Typing."
click_start_stop
wait_for_state typing on 10 || fail "typing did not start from the button"
click_target
echo "   typing: $typed"
xdotool type --delay 60 "$typed"
wait_for_text "$expected" 20 || true
echo "== what arrived in the target window:"
target_text
echo
screenshot run
cp "$SHOTS/run.png" build/run-screenshot.png
echo "== screenshot: build/run-screenshot.png"
[ "$(target_text)" = "$expected" ] || fail "expected: $expected"
