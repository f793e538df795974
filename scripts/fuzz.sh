#!/usr/bin/env bash
# Builds the libFuzzer targets with clang + ASan + UBSan and runs each for a share of the
# given seconds. Any crash, leak or undefined behaviour fails the script.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}

# Only the targets: the rest of the tree is built and tested by the other presets.
names=()
for source in fuzz/*_fuzz.cpp; do names+=("$(basename "$source" .cpp)"); done
[ -e "fuzz/${names[0]}.cpp" ] || { echo "fuzz: no targets"; exit 0; }
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target "${names[@]}"
targets=("${names[@]/#/build/fuzz/bin/}")
per_target=$(( seconds / ${#targets[@]} ))
[ "$per_target" -ge 5 ] || per_target=5
for t in "${targets[@]}"; do
  name=$(basename "$t")
  corpus=build/fuzz/corpus/$name
  mkdir -p "$corpus"
  seeds=()
  [ -d "fuzz/seeds/$name" ] && seeds=("fuzz/seeds/$name")
  echo "== fuzz: $name for ${per_target}s"
  "$t" -max_total_time="$per_target" -print_final_stats=0 "$corpus" "${seeds[@]}" 2>build/fuzz/$name.log \
    || { tail -50 build/fuzz/$name.log; exit 1; }
  grep -E '^(#[0-9]+).*DONE' build/fuzz/$name.log | tail -1 || true
done
