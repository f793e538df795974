#!/usr/bin/env bash
# Ctrl+C or a kill while quilom writes an output file: the old file stays as it was and no
# temporary is left beside it. The input is a pipe kept open, so the run is caught mid-write.
# Usage: interrupted_output.sh QUILOM
set -uo pipefail
quilom=$1
work=$(mktemp -d)
trap 'exec 3>&- 2>/dev/null; rm -rf "$work"' EXIT
failures=0
for signal in TERM INT; do
  rm -f "$work"/*
  printf 'old\n' >"$work/out.txt"
  mkfifo "$work/in"
  "$quilom" translit "$work/in" -o "$work/out.txt" &
  pid=$!
  exec 3>"$work/in"
  head -c 300000 /dev/zero | tr '\0' a >&3   # more than the typist holds back, so writing has begun
  for _ in $(seq 50); do
    ls "$work"/out.txt.*.saving >/dev/null 2>&1 && break
    sleep 0.1
  done
  ls "$work"/out.txt.*.saving >/dev/null 2>&1 || { echo "FAIL($signal): no temporary while writing"; failures=$((failures + 1)); }
  kill -s "$signal" "$pid"
  wait "$pid"
  status=$?
  exec 3>&-
  [ "$status" -gt 128 ] || { echo "FAIL($signal): exit $status, not ended by the signal"; failures=$((failures + 1)); }
  leftovers=$(ls "$work" | grep -c saving)
  [ "$leftovers" -eq 0 ] || { echo "FAIL($signal): $leftovers temporaries left"; failures=$((failures + 1)); }
  [ "$(cat "$work/out.txt")" == "old" ] || { echo "FAIL($signal): the old output was changed"; failures=$((failures + 1)); }
  echo "SIG$signal: exit $status, $leftovers temporaries left, old output kept"
done
[ "$failures" -eq 0 ]
