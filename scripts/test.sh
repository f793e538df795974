#!/usr/bin/env bash
# Installs what is needed, builds everything, fuzzes the parsers briefly, then runs every
# test (unit and end-to-end) with CTest. The last lines are CTest's summary.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh
bash scripts/build.sh
bash scripts/fuzz.sh "${QUILOM_FUZZ_SECONDS:-150}"

echo "== tests"
ctest --preset linux -j 2
