#!/usr/bin/env bash
# Installs what is needed, builds, and runs the main job: the typing engine on a sample text.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh
bash scripts/build.sh
echo "== quilom translit"
echo "vaNakkam thamizh" | tee /dev/stderr | build/linux/bin/quilom translit
