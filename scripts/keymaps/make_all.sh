#!/usr/bin/env bash
# Regenerates every keymap of this folder's generators, then the lists and charts that are
# drawn from the installed keymaps. The Tamil phonetic keymap (make_tamil_phonetic.py) and the
# converter's tables (scripts/converter/make_tables.py) must be current first: the legacy
# encoding keymaps are composed from both.
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
for generator in make_tamil99 make_tamil_typewriter make_user_defined make_indic_itrans \
                 make_world_phonetics make_legacy_phonetics make_script_letters make_catalogue make_charts; do
  python3 "$here/$generator.py"
done
