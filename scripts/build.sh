#!/usr/bin/env bash
# Builds the native core (tests, benchmarks, quilom) and the Windows programs (x86-64, i686),
# then packages both Windows builds (installers and portable zips in build/packages/) and the
# command for Linux (a Debian package, also in build/packages/).
set -euo pipefail
cd "$(dirname "$0")/.."

for preset in linux windows windows-i686; do
  echo "== build: $preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
done

echo "== package"
bash scripts/package.sh win64 win32 deb
