#!/bin/bash
# The portable zip under Wine: unpacked into a fresh folder, the program there starts, types
# Tamil, and its quilom command reports the packaged version.
# Usage: portable_zip.sh SESSION_DIR OUTPUT_DIR ZIP TARGET_EXE VERSION
# Exits 77 (skipped) when the zip or the Wine session is missing.
set -euo pipefail
export SESSION=$1
out=$2
zip_file=$3
export TARGET_EXE=$4
version=$5
export WORK=$out/portable_zip SHOTS=$out/screenshots

if [ ! -f "$zip_file" ]; then
  echo "SKIPPED: $zip_file is missing; make it with scripts/package.sh (scripts/build.sh runs it)."
  exit 77
fi
if [ ! -f "$SESSION/env.sh" ]; then
  echo "SKIPPED: no Wine session (the e2e_wine_session_start test did not run or could not start one)."
  exit 77
fi

here=$(cd "$(dirname "$0")" && pwd)
unpacked=$out/portable
folder=$unpacked/Quilom++-$version
export QUILOM_EXE=$folder/Quilom++.exe
# shellcheck disable=SC1091
source "$here/../e2e/lib.sh"

rm -rf "$unpacked"
mkdir -p "$unpacked"
(cd "$unpacked" && unzip -q "$zip_file") || fail "the zip did not unpack"
for f in Quilom++.exe quilom.exe Portable.txt "Sorvin/Indic Direct Typer/Settings.txt" \
  "Sorvin/Indic Direct Typer/help/getting-started.html" "Sorvin/pelandr/inis/qm-settings.ini"; do
  [ -f "$folder/$f" ] || fail "not in the zip: $f"
done

reported=$(wine "$folder/quilom.exe" --version </dev/null 2>/dev/null | tr -d '\r')
[ "$reported" = "quilom $version" ] || fail "quilom.exe --version says '$reported', expected 'quilom $version'"

start_target
start_quilom --start-typing
click_target
xdotool type --delay 30 'thamizh '
expect_text 'தமிழ் '
screenshot portable_typing
echo "PASS: portable zip"
