#!/usr/bin/env bash
# Ctrl+C or a kill while quilom converts a document: the office it started stops, its private
# profile is removed, and neither a partial output nor a temporary is left.
# Usage: interrupted_conversion.sh QUILOM
set -uo pipefail
quilom=$1
work=$(mktemp -d)
export TMPDIR=$work/tmp   # the office's profile goes here, where nothing else writes
mkdir -p "$TMPDIR"
trap 'rm -rf "$work"' EXIT
printf '{\\rtf1\\ansi{\\fonttbl{\\f0 TSCu_Paranar;}}\\f0 \\b \\'"'"'be\\'"'"'c1\\'"'"'a2\\'"'"'fa\\b0  \\'"'"'a6\\'"'"'b8\\'"'"'a1\\'"'"'ca\\par}' >"$work/letter.rtf"
failures=0
for delay in 0.3 1 2; do
  for signal in TERM INT; do
    "$quilom" convert --from Tscii --to Unicode "$work/letter.rtf" -o "$work/out.odt" --legacy-font TSCu_Paranar \
      >/dev/null 2>&1 &
    pid=$!
    sleep "$delay"
    kill -s "$signal" "$pid" 2>/dev/null
    wait "$pid"
    status=$?
    sleep 0.5
    profiles=$(find "$TMPDIR" -mindepth 1 -maxdepth 1 | wc -l)
    offices=$(pgrep -f "UserInstallation=file://$TMPDIR" | wc -l)
    partial=$(find "$work" -maxdepth 1 -name 'out.odt?*' | wc -l)
    # The output appears whole or not at all: a signal just after it was put in place leaves it,
    # and it must then be a complete document.
    whole=yes
    if [ -e "$work/out.odt" ] && ! unzip -tq "$work/out.odt" >/dev/null 2>&1; then whole=no; fi
    echo "SIG$signal after ${delay}s: exit $status, $profiles profiles, $offices offices, $partial partial, output whole: $whole"
    if [ "$profiles" -ne 0 ] || [ "$offices" -ne 0 ] || [ "$partial" -ne 0 ] || [ "$whole" != yes ]; then
      failures=$((failures + 1))
    fi
    rm -f "$work"/out.odt*
  done
done
echo "$failures failures"
[ "$failures" -eq 0 ]
