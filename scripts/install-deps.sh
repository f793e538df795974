#!/usr/bin/env bash
# Installs everything the build and the tests need, from Debian 12's packages.
# Safe to run again: apt-get skips what is already there.
set -euo pipefail

packages=(
  # native build, unit tests, benchmarks, fuzzing
  cmake ninja-build g++ clang libclang-rt-dev googletest libgtest-dev libgmock-dev libbenchmark-dev
  python3
  # Windows cross builds (x86-64 and i686, posix thread model)
  g++-mingw-w64-x86-64 g++-mingw-w64-i686 binutils-mingw-w64-x86-64 binutils-mingw-w64-i686
  # end-to-end tests of the Windows program under Wine, headless
  wine wine64 xvfb xdotool x11-utils imagemagick fonts-lohit-taml xclip
  # independent input methods used as a test oracle for the keymaps
  m17n-db libm17n-dev
  # the LibreOffice document backend and its end-to-end tests (real legacy and Unicode fonts)
  libreoffice-writer-nogui libreoffice-dev fonts-taml-tscu fonts-taml-tamu fonts-noto-core
  # independent references for the legacy encodings: the glyph tables of the fonts Debian ships,
  # read with a font library and shaped with HarfBuzz (glibc's iconv is in libc itself)
  python3-fonttools libharfbuzz-bin
  # the installer and the portable zip of the Windows builds; the Debian package of the command
  nsis zip unzip help2man dpkg-dev
  # what a person sees of a converted document: LibreOffice's PDF export, read back
  poppler-utils
  # real Tamil words for the round-trip measurement of reverse transliteration
  aspell aspell-ta
  # real words of the other Indic languages, typed through the ITRANS keymaps and m17n's methods
  aspell-hi aspell-mr aspell-bn aspell-gu aspell-pa aspell-or aspell-te aspell-kn aspell-ml
)

sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -eq 0 ]; then
  echo "install-deps: all ${#packages[@]} packages present"
  exit 0
fi
echo "install-deps: installing ${missing[*]}"
$sudo apt-get update -q
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
