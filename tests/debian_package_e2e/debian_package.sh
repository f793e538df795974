#!/usr/bin/env bash
# Unpacks the Debian package into a clean folder and uses it as a Linux user would.
# Usage: debian_package.sh PACKAGE.deb RUNS_DIR     (77: the package was not built)
set -uo pipefail
deb=$1 runs=$2
[ -f "$deb" ] || { echo "no package at $deb (scripts/package.sh deb makes it)"; exit 77; }
failures=0
check() {  # WHAT EXPECTED ACTUAL
  if [ "$2" == "$3" ]; then echo "ok: $1"; else echo "FAIL: $1: expected [$2], got [$3]"; failures=$((failures + 1)); fi
}

root=$runs/root
rm -rf "$runs" && mkdir -p "$root"
dpkg-deb -x "$deb" "$root"
check "control names the package" "quilom" "$(dpkg-deb -f "$deb" Package)"
quilom=$root/usr/bin/quilom
cd "$runs"

check "types Tamil from the installed data tree" "வணக்கம் தமிழ்" "$(printf 'vaNakkam thamizh' | "$quilom" translit)"
check "lists the encodings" "26" "$("$quilom" convert --list | wc -l)"
check "converts to TSCII and back" "பொங்கல்" \
  "$(printf 'பொங்கல்' | "$quilom" convert --from Unicode --to Tscii | "$quilom" convert --from Tscii --to Unicode)"
printf '₹' | "$quilom" convert --from Unicode --to Tscii >/dev/null 2>&1
check "refuses what TSCII cannot hold" "1" "$?"
check "prints its version" "quilom 0.1.0" "$("$quilom" --version | sed 's/ [0-9.]*$/ 0.1.0/')"

page=$(MANWIDTH=100 man -l "$root/usr/share/man/man1/quilom.1.gz" 2>/dev/null)
check "manual page has its name line" "1" "$(grep -c '^ *quilom - type Indic text' <<<"$page")"
check "manual page documents each command" "1" "$(grep -c '^   convert$' <<<"$page")"

completions=$(PATH=$root/usr/bin:$PATH bash -c '
  source "$1"
  COMP_WORDS=(quilom convert --from Ts); COMP_CWORD=3; _quilom; echo "${COMPREPLY[*]}"
  COMP_WORDS=(quilom translit --keymap Tamil-Unicode-Ta); COMP_CWORD=3; _quilom; echo "${COMPREPLY[*]}"
  COMP_WORDS=(quilom conv); COMP_CWORD=1; _quilom; echo "${COMPREPLY[*]}"
  COMP_WORDS=(quilom convert --unm); COMP_CWORD=2; _quilom; echo "${COMPREPLY[*]}"
' _ "$root/usr/share/bash-completion/completions/quilom")
check "completes encodings" "Tscii" "$(sed -n 1p <<<"$completions")"
check "completes keymaps" "Tamil-Unicode-TamilNet99" "$(sed -n 2p <<<"$completions")"
check "completes commands" "convert" "$(sed -n 3p <<<"$completions")"
check "completes options from the help" "--unmappable" "$(sed -n 4p <<<"$completions")"

echo "$failures failures"
[ "$failures" -eq 0 ]
