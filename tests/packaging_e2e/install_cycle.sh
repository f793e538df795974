#!/bin/bash
# The installer under Wine, as a user would meet it: a silent install into a fresh folder, the
# installed program typing Tamil, an upgrade over a changed install, and the uninstaller.
# Usage: install_cycle.sh SESSION_DIR OUTPUT_DIR INSTALLER TARGET_EXE
# Exits 77 (skipped) when the installer or the Wine session is missing.
set -euo pipefail
export SESSION=$1
out=$2
installer=$3
export TARGET_EXE=$4
export WORK=$out/install_cycle SHOTS=$out/screenshots

if [ ! -f "$installer" ]; then
  echo "SKIPPED: $installer is missing; make it with scripts/package.sh (scripts/build.sh runs it)."
  exit 77
fi
if [ ! -f "$SESSION/env.sh" ]; then
  echo "SKIPPED: no Wine session (the e2e_wine_session_start test did not run or could not start one)."
  exit 77
fi

here=$(cd "$(dirname "$0")" && pwd)
install_dir=$out/installed/Quilom++
export QUILOM_EXE=$install_dir/Quilom++.exe
# shellcheck disable=SC1091
source "$here/../e2e/lib.sh"
# shellcheck disable=SC1091
source "$here/settings_files.sh"

programs=$(echo "$WINEPREFIX"/drive_c/users/*/AppData/Roaming/Microsoft/Windows/"Start Menu"/Programs)
[ -d "$programs" ] || fail "no Start menu folder in the prefix"
startup_folder=$(find "$programs" -maxdepth 1 -iname startup | head -1)
startup_link=${startup_folder:-$programs/Startup}/QuilomPP.url
start_menu=$programs/Quilom++
typer=$install_dir/Sorvin/"Indic Direct Typer"
own_keymap=$typer/qmLFKs-txts-xmls/QuilomPlus-MyTamil-Unicode-PhoneticTransliteration.xml

cleanup() {
  stop_programs
  rm -f "$startup_link"
  rm -rf "$start_menu"
  wine reg delete 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Quilom++' /f >/dev/null 2>&1 || true
}
trap cleanup EXIT
rm -rf "$out/installed"
mkdir -p "$out/installed"

# /D must come last and unquoted; the installer returns when it is done.
install() { timeout 120 wine "$installer" /S "/D=$(winpath "$install_dir")" </dev/null >>"$WORK/install.out" 2>&1; }

# The uninstaller copies itself away and returns at once; it is done when it has removed itself.
uninstall() {  # [switches]
  timeout 60 wine "$install_dir/Uninstall.exe" /S "$@" </dev/null >>"$WORK/install.out" 2>&1
  local deadline=$((SECONDS + 60))
  while [ -f "$install_dir/Uninstall.exe" ]; do
    [ $SECONDS -ge $deadline ] && fail "the uninstaller did not finish"
    sleep 0.2
  done
}

type_with_installed_program() {
  # shellcheck disable=SC2034  # lib.sh keeps the programs it started here
  PIDS=()
  rm -f "$WORK/stop" "$WORK/text.txt" "$WORK/target.ready"
  start_target
  start_quilom --start-typing
  click_target
  xdotool type --delay 30 'vaNakkam '
  expect_text 'வணக்கம் '
  screenshot installed_program_typing
  # An install over the running program would replace files it holds open: it must refuse.
  local status=0
  install || status=$?
  [ "$status" = 2 ] || fail "an install over the running program gave exit code $status, expected 2"
  stop_programs
}

echo "== fresh install"
install || fail "the installer failed"
for f in Quilom++.exe quilom.exe Uninstall.exe "Sorvin/Indic Direct Typer/Settings.txt" \
  "Sorvin/pelandr/inis/qm-settings.ini" "Sorvin/Indic Direct Typer/help/getting-started.html" \
  "Defaults/Sorvin/Indic Direct Typer/Settings.txt"; do
  [ -f "$install_dir/$f" ] || fail "not installed: $f"
done
[ -f "$start_menu/Quilom++.lnk" ] || fail "no Start menu entry"
[ -f "$startup_link" ] || fail "no start-up link"
expected_url="URL=file:///$(winpath "$install_dir")\\Quilom++.exe"
tr -d '\r' <"$startup_link" | grep -qxF "$expected_url" || fail "start-up link: $(cat "$startup_link")"
tr -d '\r' <"$startup_link" | grep -qxF "IconFile=$(winpath "$install_dir")\\Quilom++.exe" || fail "no IconFile"
[ "$(settings_value "$typer/Settings.txt" "Present Hotkey")" = "Alt+F12" ] || fail "the shipped hotkey is not installed"

echo "== the installed program types Tamil"
type_with_installed_program

echo "== upgrade over a changed install"
set_settings_value "$typer/Settings.txt" "Present Hotkey" "Ctrl+F9"
drop_settings_key "$typer/Settings.txt" "Include Hotkeys"
[ -z "$(settings_value "$typer/Settings.txt" "Include Hotkeys")" ] || fail "the key was not dropped for the test"
set_ini_line "$install_dir/Sorvin/pelandr/inis/qm-settings.ini" "StartQuilomMinimized=0" "StartQuilomMinimized=1"
drop_ini_line "$install_dir/Sorvin/pelandr/inis/qm-settings.ini" "BalloonTipAtStartup=1"
echo "my keymap" >"$own_keymap"
install || fail "the second install failed"
[ "$(settings_value "$typer/Settings.txt" "Present Hotkey")" = "Ctrl+F9" ] || fail "the upgrade lost the user's hotkey"
[ "$(settings_value "$typer/Settings.txt" "Include Hotkeys")" = "1" ] || fail "the upgrade did not add the missing key"
ini_has_line "$install_dir/Sorvin/pelandr/inis/qm-settings.ini" "StartQuilomMinimized=1" || fail "the upgrade lost an ini value"
ini_has_line "$install_dir/Sorvin/pelandr/inis/qm-settings.ini" "BalloonTipAtStartup=1" || fail "the upgrade did not add the ini key"
[ "$(cat "$own_keymap")" = "my keymap" ] || fail "the upgrade touched the user's own keymap"

echo "== uninstall keeps the user's settings and keymaps"
uninstall
for f in Quilom++.exe quilom.exe "Defaults" "Sorvin/Indic Direct Typer/help/getting-started.html" \
  "Sorvin/Indic Direct Typer/Settings-Choices.txt"; do
  [ ! -e "$install_dir/$f" ] || fail "left behind: $f"
done
[ ! -e "$startup_link" ] || fail "the start-up link was left behind"
[ ! -e "$start_menu" ] || fail "the Start menu entry was left behind"
[ "$(settings_value "$typer/Settings.txt" "Present Hotkey")" = "Ctrl+F9" ] || fail "the user's settings went"
[ -f "$own_keymap" ] || fail "the user's own keymap went"

echo "== reinstall finds the user's settings; uninstall /REMOVEUSERDATA takes everything"
install || fail "the reinstall failed"
[ "$(settings_value "$typer/Settings.txt" "Present Hotkey")" = "Ctrl+F9" ] || fail "the reinstall lost the user's hotkey"
uninstall /REMOVEUSERDATA
[ ! -e "$install_dir" ] || fail "left behind: $(cd "$install_dir" && find . | head -5)"
echo "PASS: install, upgrade and uninstall"
