#!/usr/bin/env bash
# Makes the installers and the portable zips of the Windows builds:
#   build/packages/Quilom++-<version>-win64-setup.exe, ...-win64-portable.zip (from build/windows)
#   build/packages/Quilom++-<version>-win32-setup.exe, ...-win32-portable.zip (from build/windows-i686)
#   build/packages/quilom_<version>_amd64.deb (the command for Linux, from build/linux)
# Usage: package.sh [win64|win32|deb ...]   (default: all three)
# Environment: QUILOM_WIN64_BUILD / QUILOM_WIN32_BUILD point at other build folders.
# A build folder without Quilom++.exe is skipped with a message; a missing makensis or zip fails.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
out=$root/build/packages

need_windows_tools() {
  command -v makensis >/dev/null || { echo "package: makensis is missing (scripts/install-deps.sh installs nsis)" >&2; exit 1; }
  command -v zip >/dev/null || { echo "package: zip is missing (scripts/install-deps.sh installs it)" >&2; exit 1; }
}

# major.minor.revision from the one generated header of the build.
version_of() {  # BUILD_DIR
  local header=$1/generated/version.hpp part v=()
  for part in Major Minor Revision; do
    v+=("$(sed -n "s/.*kVersion$part = \([0-9]\+\);.*/\1/p" "$header")")
  done
  [ -n "${v[0]}" ] && [ -n "${v[1]}" ] && [ -n "${v[2]}" ] || { echo "package: no version in $header" >&2; return 1; }
  echo "${v[0]}.${v[1]}.${v[2]}"
}

# Settings files hold the user's choices: installed once, merged on upgrade, never overwritten.
is_user_settings() {  # RELATIVE_PATH
  local name=${1##*/}
  case $name in
    Settings.txt | "Settings - "*.txt | *.ini | *.replica) return 0 ;;
  esac
  return 1
}

nsis_path() { local p=${1//\//\\}; echo "${p//\$/\$\$}"; }

# stage/app: installed as it is; stage/defaults: the settings files; the uninstaller's list.
stage_files() {  # BIN_DIR STAGE
  local bin=$1 stage=$2 rel
  rm -rf "$stage"
  mkdir -p "$stage/app" "$stage/defaults"
  cp "$bin"/*.exe "$stage/app/"
  cp -r "$bin/Sorvin" "$stage/app/Sorvin"
  while IFS= read -r -d '' rel; do
    rel=${rel#./}
    if is_user_settings "$rel"; then
      mkdir -p "$stage/defaults/$(dirname "$rel")"
      mv "$stage/app/$rel" "$stage/defaults/$rel"
    fi
  done < <(cd "$stage/app" && find . -type f -print0)
  {
    echo "; The shipped files and folders; folders still holding the user's files stay."
    (cd "$stage/app" && find . -type f | sort) | while IFS= read -r rel; do
      echo "Delete \"\$INSTDIR\\$(nsis_path "${rel#./}")\""
    done
    (cd "$stage" && { (cd app && find . -mindepth 1 -type d); (cd defaults && find . -mindepth 1 -type d); } |
      sort -u -r) | while IFS= read -r rel; do
      echo "RMDir \"\$INSTDIR\\$(nsis_path "${rel#./}")\""
    done
  } >"$stage/uninstall_files.nsh"
}

portable_note() {  # VERSION ARCH
  cat <<NOTE
Quilom++ $1 ($2), portable

Run Quilom++.exe from this folder. Keep the folder somewhere you can write to (your
Documents, a USB stick): Quilom++ saves your settings in the Sorvin folder beside it.

How to start typing Tamil: Sorvin\\Indic Direct Typer\\help\\getting-started.html

A newer version unpacks into a folder of its own; the settings you made here stay in
this folder. The installer (Quilom++-*-setup.exe) upgrades in place and keeps them.
NOTE
}

package_one() {  # ARCH BUILD_DIR
  local arch=$1 build=$2
  if [ ! -f "$build/bin/Quilom++.exe" ] || [ ! -f "$build/bin/quilom.exe" ]; then
    echo "package: $arch skipped: $build/bin has no Quilom++.exe or quilom.exe (build that preset first)"
    return 0
  fi
  local version stage name
  version=$(version_of "$build")
  stage=$out/stage-$arch
  name=Quilom++-$version-$arch
  echo "== package: $name"
  stage_files "$build/bin" "$stage"
  rm -f "$out/$name-setup.exe"
  makensis -V2 -DVERSION="$version" -DARCH="$arch" -DSTAGE="$stage" -DOUTFILE="$out/$name-setup.exe" \
    "$root/packaging/installer.nsi"
  rm -rf "$stage"
  local zipdir=$out/zip-$arch/Quilom++-$version
  rm -rf "$out/zip-$arch" "$out/$name-portable.zip"
  mkdir -p "$zipdir"
  cp "$build/bin"/*.exe "$zipdir/"
  cp -r "$build/bin/Sorvin" "$zipdir/Sorvin"
  portable_note "$version" "$arch" | sed 's/$/\r/' >"$zipdir/Portable.txt"
  (cd "$out/zip-$arch" && zip -q -r -9 "$out/$name-portable.zip" "Quilom++-$version")
  rm -rf "$out/zip-$arch"
  ls -l "$out/$name-setup.exe" "$out/$name-portable.zip" | awk '{print "  " $5 " bytes  " $9}'
}

package_deb() {  # BUILD_DIR
  local build=$1
  if [ ! -f "$build/CPackConfig.cmake" ] || [ ! -x "$build/bin/quilom" ]; then
    echo "package: deb skipped: $build has no quilom (build the linux preset first)"
    return 0
  fi
  echo "== package: Debian package of quilom"
  cmake --build "$build" --target quilom quilom_manpage
  (cd "$build" && cpack -G DEB --config CPackConfig.cmake >/dev/null)
  ls -l "$out"/quilom_*.deb | awk '{print "  " $5 " bytes  " $9}'
}

mkdir -p "$out"
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(win64 win32 deb)
for target in "${targets[@]}"; do
  case $target in
    win64) need_windows_tools; package_one win64 "${QUILOM_WIN64_BUILD:-$root/build/windows}" ;;
    win32) need_windows_tools; package_one win32 "${QUILOM_WIN32_BUILD:-$root/build/windows-i686}" ;;
    deb) package_deb "${QUILOM_LINUX_BUILD:-$root/build/linux}" ;;
    *) echo "package: unknown target '$target' (win64, win32 or deb)" >&2; exit 2 ;;
  esac
done
