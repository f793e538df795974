#!/usr/bin/env bash
# Rewrites the golden files of the converter tests: paragraphs 1 and 11 of the test paragraphs,
# written in every shipped encoding by the built `quilom convert`. Run it after a deliberate
# change of the tables, and read the diff before committing it.
#   scripts/converter/make_golden.sh BUILD_DIR
set -euo pipefail
root="$(cd "$(dirname "$0")/../.." && pwd)"
quilom="${1:?give the build folder}/bin/quilom"
data="$root/data/Sorvin"
golden="$root/tests/converter/golden"
input="$(mktemp)"
trap 'rm -f "$input"' EXIT
sed -n '1p;11p' "$root/tests/converter/data/tamil_paragraphs.txt" > "$input"
mkdir -p "$golden"
python3 - "$data/Tamil Fonts Converter/QuilomPlus-TamilFontEncodings.txt" <<'PY' | while read -r encoding; do
import sys
names = open(sys.argv[1], 'rb').read().decode('utf-16').split('\r\n')[1:]
print('\n'.join(n for n in names if n))
PY
  # Legacy bytes; where the table leaves characters the encoding cannot hold, they are kept and the
  # file is the UTF-8 text of the font's view instead, as the golden test compares the table's
  # whole output (exit status 3 says characters were kept).
  status=0
  "$quilom" --data "$data" convert --from Unicode --to "$encoding" "$input" -o "$golden/$encoding.bin" \
    2>/dev/null || status=$?
  if [ "$status" -eq 1 ]; then
    status=0
    "$quilom" --data "$data" convert --from Unicode --to "$encoding" --unmappable keep "$input" \
      -o "$golden/$encoding.bin" 2>/dev/null || status=$?
  fi
  if [ "$status" -ne 0 ] && [ "$status" -ne 3 ]; then
    echo "make_golden.sh: quilom convert --to $encoding failed ($status)" >&2
    exit 1
  fi
done
