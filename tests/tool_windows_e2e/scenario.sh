#!/usr/bin/env bash
# One end-to-end scenario of the text tools' windows, run through the test host under Wine:
#   scenario.sh SESSION_DIR HOST_EXE OUTPUT_DIR NAME
# NAME: at, at2, rt, rt2, url, startup, dpi144, menus. Screenshots go to OUTPUT_DIR/NAME*.png.
# `menus` runs Quilom++.exe, found beside HOST_EXE, and opens every window from its menu bar.
# The host gets a private copy of the data tree, so settings the test changes never leak.
set -euo pipefail
session=$1
host_exe=$2
out=$3
name=$4
# shellcheck disable=SC1091
source "$session/env"
mkdir -p "$out"
work=$(mktemp -d "$out/$name.XXXX")
cp -r "$(dirname "$host_exe")/Sorvin" "$work/Sorvin"
data_root="Z:$(echo "$work/Sorvin" | sed 's#/#\\#g')"

fail() { echo "FAIL [$name]: $*" >&2; shot "$name-failed"; exit 1; }
shot() { import -window root "$out/$1.png" 2>/dev/null || true; }

# open_window runs in a command substitution, so the host's pid travels through a file.
host_pid() { cat "$work/host.pid" 2>/dev/null || true; }

cleanup() {
  local pid
  [ -d "$work" ] && touch "$work/stop"
  pid=$(host_pid)
  if [ -n "$pid" ] && kill -0 "$pid" 2>/dev/null; then kill "$pid" 2>/dev/null || true; fi
  rm -rf "$work"
}
trap cleanup EXIT

# Starts the host with one window and prints the window's X id once it is mapped.
open_window() {
  local window=$1 title=$2
  wine "$host_exe" --data "$data_root" --window "$window" >"$work/host.log" 2>&1 </dev/null &
  echo $! >"$work/host.pid"
  local wid
  wid=$(timeout 30 xdotool search --sync --onlyvisible --name "$title" | head -1) || true
  [ -n "$wid" ] || fail "window '$title' did not open"
  sleep 0.5
  xdotool windowfocus --sync "$wid"
  # A real click makes it Wine's foreground window, so keys reach it.
  xdotool mousemove --window "$wid" 200 12 click 1
  sleep 0.3
  echo "$wid"
}

# Copies the whole text of the box that the mnemonic reaches and prints it.
# xclip -i stays behind to serve the selection: it must not hold the test's output open.
clear_clipboard() { printf '' | xclip -selection clipboard >/dev/null 2>&1; }
read_clipboard() { timeout 3 xclip -o -selection clipboard 2>/dev/null | tr -d '\0' || true; }

copy_box() {
  clear_clipboard
  xdotool key --delay 30 "$1" ctrl+a ctrl+c
  sleep 0.3
  read_clipboard
}

# Copies the box until its text holds `expected` (a conversion may still be running).
wait_box_holds() {
  local mnemonic=$1 expected=$2 text=""
  for _ in $(seq 20); do
    text=$(copy_box "$mnemonic")
    if [[ "$text" == *"$expected"* ]]; then return 0; fi
    sleep 0.3
  done
  fail "expected '$expected', the box holds: '${text:0:200}'"
}

close_window() {
  xdotool key Escape
  local pid
  pid=$(host_pid)
  for _ in $(seq 50); do kill -0 "$pid" 2>/dev/null || { rm -f "$work/host.pid"; return 0; }; sleep 0.1; done
  fail "the host did not end after Escape closed its window"
}

winpath() { echo "Z:$(echo "$1" | sed 's#/#\\#g')"; }

# Starts Quilom++.exe from a private copy beside the private data tree (the program reads its
# data beside itself) and prints its main window's X id.
start_quilom() {
  cp "$(dirname "$host_exe")/Quilom++.exe" "$work/Quilom++.exe"
  wine "$work/Quilom++.exe" --state-file "$(winpath "$work/quilom.state")" --exit-when "$(winpath "$work/stop")" \
    >"$work/quilom.log" 2>&1 </dev/null &
  echo $! >"$work/host.pid"
  local wid
  wid=$(timeout 40 xdotool search --sync --onlyvisible --name '^Quilom\+\+ : Direct Tamil' | head -1) || true
  [ -n "$wid" ] || fail "the Quilom++ main window did not open"
  echo "$wid"
}

# Clicks the window's caption (a real click makes it Wine's foreground window), then opens the
# entry ENTRY of the menu MENU (both mnemonics) and waits for a visible window titled TITLE.
# F10 enters the menu bar first: under Wine, Alt alone does not reach the menu bar.
open_from_menu() {
  local main=$1 menu=$2 entry=$3 title=$4 wid
  xdotool windowfocus --sync "$main" 2>/dev/null || true
  xdotool mousemove --window "$main" 200 12 click 1
  sleep 0.3
  xdotool key --delay 200 F10 "$menu" "$entry"
  wid=$(timeout 20 xdotool search --sync --onlyvisible --name "$title" | head -1) || true
  [ -n "$wid" ] || fail "F10, $menu, $entry did not open a window titled '$title'"
  echo "$wid"
}

settings_value() {  # file key -> the line after the key line
  iconv -f UTF-16 -t UTF-8 "$1" | tr -d '\r' | grep -A1 -x "\`\`\`\`\`$2" | tail -1
}

case $name in
  at)
    wid=$(open_window at '^Quilom\+\+ - Auto Transliterator$')
    xdotool key --delay 50 alt+t s
    wait_box_holds alt+m 'அகர முதல எழுத்தெல்லாம் ஆதி'
    wait_box_holds alt+m 'யாதும் ஊரே யாவரும் கேளிர்'
    shot at
    close_window
    ;;
  at2)
    wid=$(open_window at2 'Auto Transliterator \(side by side\)')
    xdotool key alt+l
    xdotool type --delay 20 'vaNakkam thamizh 123 #tag'
    xdotool key alt+c
    wait_box_holds alt+m 'வணக்கம் தமிழ் 123 #tag'
    shot at2
    close_window
    ;;
  rt)
    wid=$(open_window rt '^Quilom\+\+ - Reverse Transliteration$')
    xdotool key --delay 50 alt+t s
    wait_box_holds alt+l 'thamizh oru pazhamaiyaana mozhi'
    shot rt
    close_window
    ;;
  rt2)
    wid=$(open_window rt2 'Reverse Transliteration \(small\)')
    xdotool key --delay 50 alt+t s
    # Its own word list spells names as English texts do.
    wait_box_holds alt+l 'Tamil oru pazhamaiyaana mozhi. idhu India, Sri Lanka, Singapore'
    shot rt2
    close_window
    ;;
  url)
    settings="$work/Sorvin/URL Normalizer/Settings.txt"
    [ "$(settings_value "$settings" 'Auto Copy')" = 0 ] || fail "the shipped Auto Copy is not 0"
    wid=$(open_window url 'URL Normalizer')
    xdotool key alt+y  # tick Auto Copy
    sleep 0.3
    [ "$(settings_value "$settings" 'Auto Copy')" = 1 ] || fail "ticking Auto Copy did not save 1"
    clear_clipboard
    xdotool key alt+p
    # Auto Normalize (ticked in the shipped settings) normalises as the text changes; Auto Copy
    # then puts each result on the clipboard, with no copy of ours.
    xdotool type --delay 10 'https://ta.wikipedia.org/wiki/%E0%AE%A4%E0%AE%AE%E0%AE%BF%E0%AE%B4%E0%AF%8D'
    clip=""
    for _ in $(seq 40); do
      clip=$(read_clipboard)
      [ "$clip" = 'https://ta.wikipedia.org/wiki/தமிழ்' ] && break
      sleep 0.2
    done
    [ "$clip" = 'https://ta.wikipedia.org/wiki/தமிழ்' ] || fail "clipboard holds '$clip'"
    shot url
    close_window
    ;;
  startup)
    start_menu=$(find "$WINEPREFIX/drive_c/users" -type d -path '*/AppData/Roaming/Microsoft/Windows/Start Menu' | head -1)
    [ -n "$start_menu" ] || fail "the prefix has no Start Menu folder"
    # Wine spells the folder "StartUp" and makes it on first use; Windows paths ignore case.
    find_link() { find "$start_menu/Programs" -maxdepth 2 -iname QuilomPP.url | head -1; }
    find "$start_menu/Programs" -maxdepth 2 -iname QuilomPP.url -delete
    wid=$(open_window startup 'Start with Windows')
    xdotool key alt+s  # tick "StartQuilom++ WithWindows"
    link=
    for _ in $(seq 20); do link=$(find_link); [ -n "$link" ] && break; sleep 0.1; done
    [ -n "$link" ] || fail "no link after ticking"
    settings="$work/Sorvin/Indic Direct Typer/Settings.txt"
    [ "$(settings_value "$settings" 'StartQuilom++ WithWindows')" = 1 ] || fail "ticking did not save 1"
    shot startup
    contents=$(tr -d '\r' <"$link")
    [ "$(grep -c '^\[InternetShortcut\]$' <<<"$contents")" = 1 ] || fail "link: $contents"
    grep -qx 'URL=file:///.*\\Quilom++\.exe' <<<"$contents" || fail "link URL: $contents"
    grep -qx 'IconIndex=0' <<<"$contents" || fail "link IconIndex: $contents"
    grep -qx 'IconFile=.*\\Quilom++\.exe' <<<"$contents" || fail "link IconFile: $contents"
    xdotool key alt+s  # untick: the link goes
    for _ in $(seq 20); do [ -f "$link" ] || break; sleep 0.1; done
    [ ! -f "$link" ] || fail "the link is still there after unticking"
    [ "$(settings_value "$settings" 'StartQuilom++ WithWindows')" = 0 ] || fail "unticking did not save 0"
    close_window
    ;;
  dpi144)
    width_at() {
      wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null 2>&1
      local wid
      wid=$(open_window url 'URL Normalizer')
      xdotool getwindowgeometry "$wid" | sed -n 's/.*Geometry: \([0-9]*\)x.*/\1/p'
      shot "dpi$1"
      close_window >/dev/null
    }
    narrow=$(width_at 96)
    wide=$(width_at 144)
    wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d 96 /f >/dev/null 2>&1
    [ $((wide * 10)) -ge $((narrow * 14)) ] || fail "at 144 DPI the window is $wide wide, at 96 DPI $narrow"
    echo "width at 96 DPI: $narrow, at 144 DPI: $wide"
    ;;
  menus)
    main=$(start_quilom)
    # Menu mnemonic, entry mnemonic, title of the window it opens.
    while IFS="|" read -r -u 3 menu entry title; do
      wid=$(open_from_menu "$main" "$menu" "$entry" "$title")
      sleep 1
      shot "menus-$menu-$entry"
      echo "$menu $entry: '$(xdotool getwindowname "$wid")'"
      xdotool windowfocus --sync "$wid" 2>/dev/null || true
      xdotool key alt+F4
      for _ in $(seq 50); do
        xdotool search --onlyvisible --name "$title" >/dev/null 2>&1 || break
        sleep 0.1
      done
      ! xdotool search --onlyvisible --name "$title" >/dev/null 2>&1 || fail "'$title' did not close on Alt+F4"
    done 3<<'MENUS'
o|f|^Quilom\+\+ : Tamil Fonts Converter$
o|r|^Quilom\+\+ - Reverse Transliteration$
o|s|^Quilom\+\+ - Reverse Transliteration \(small\)$
o|a|^Quilom\+\+ - Auto Transliterator$
o|b|^Quilom\+\+ - Auto Transliterator \(side by side\)$
o|u|^Quilom\+\+ - URL Normalizer$
s|w|^Quilom\+\+ - Start with Windows$
MENUS
    ;;
  *)
    fail "unknown scenario"
    ;;
esac
echo "PASS [$name]"
