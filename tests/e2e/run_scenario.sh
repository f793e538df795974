#!/bin/bash
# Runs one end-to-end scenario (scenarios/NAME.sh) in the shared Wine session.
# Usage: run_scenario.sh NAME SESSION_DIR OUTPUT_DIR QUILOM_EXE TARGET_EXE EXPECTED_TYPING_TOOL DATA_ROOT
# Exits 77 (skipped) when the Windows build or the session is missing.
set -euo pipefail
name=$1
export SESSION=$2
out=$3
export QUILOM_EXE=$4 TARGET_EXE=$5 EXPECTED_TYPING=$6 DATA_ROOT=$7
export WORK=$out/$name SHOTS=$out/screenshots

if [ ! -f "$QUILOM_EXE" ]; then
  echo "SKIPPED: $QUILOM_EXE is missing; build the windows preset first (scripts/build.sh)."
  exit 77
fi
if [ ! -f "$SESSION/env.sh" ]; then
  echo "SKIPPED: no Wine session (the e2e_wine_session_start test did not run or could not start one)."
  exit 77
fi
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck disable=SC1091
source "$here/lib.sh"
# shellcheck disable=SC1090
source "$here/scenarios/$name.sh"
echo "PASS: $name"
