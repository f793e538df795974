#!/usr/bin/env bash
# Writes quilom's manual page from its own help: the overview from `quilom --help`, and one
# section per command from `quilom COMMAND --help`, so the page never says other than the program.
# Usage: make_manpage.sh QUILOM DATA_ROOT OUT.1
set -euo pipefail
quilom=$1 data=$2 out=$3
include=$(mktemp)
trap 'rm -f "$include"' EXIT
{
  echo "[COMMANDS]"
  for command in $("$quilom" --data "$data" --help | sed -n 's/^  \([a-z][a-z-]*\)\( .*\)\?$/\1/p'); do
    echo ".SS $command"
    echo ".nf"
    "$quilom" --data "$data" "$command" --help | sed 's/\\/\\\\/g; s/^\./\\\&./'
    echo ".fi"
  done
  echo "[FILES]"
  echo "/usr/share/quilom/Sorvin: keymaps, conversion tables and their notes, settings files."
  echo "[SEE ALSO]"
  echo "iconv(1)"
} >"$include"
help2man --no-info --no-discard-stderr --section 1 \
  --name "type Indic text from Latin keys, convert legacy Tamil fonts to and from Unicode" \
  --include "$include" --output "$out" "$quilom"
