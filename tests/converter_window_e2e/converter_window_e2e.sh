#!/bin/bash
# End-to-end scenarios of the converter window under Wine, driven as a person would: keys and
# mnemonics with xdotool, answers to the message boxes, and the window's own files read back.
# The host program opens the window alone; "--fake-word" replaces the attach to Word by a
# stand-in (a hand-made IDispatch tree that logs each call), since no Word runs here.
#   converter_window_e2e.sh SCENARIO HOST_EXE SESSION_DIR WORK_DIR SHOTS_DIR
set -euo pipefail

scenario=$1
HOST_EXE=$2
SESSION=$3
WORK=$4/$scenario
SHOTS=$5

# shellcheck disable=SC1091
source "$SESSION/env.sh"
rm -rf "$WORK"
mkdir -p "$WORK" "$SHOTS"
HOST_PID=""

fail() {
  echo "FAIL ($scenario): $*" >&2
  [ -f "$WORK/log.txt" ] && { echo "--- host log" >&2; cat "$WORK/log.txt" >&2; }
  exit 1
}

winpath() { local p; p=$(realpath -m "$1"); echo "Z:${p//\//\\}"; }

stop_host() {
  touch "$WORK/stop"
  if [ -n "$HOST_PID" ]; then
    for _ in $(seq 100); do kill -0 "$HOST_PID" 2>/dev/null || break; sleep 0.1; done
    kill "$HOST_PID" 2>/dev/null || true
  fi
}
trap stop_host EXIT

SETTINGS="$WORK/Sorvin/Tamil Fonts Converter/Settings.txt"

# Writes the converter's settings file: FROM TO UNI NONUNI IRRIREE PLAIN VOWELS QUOTES
write_settings() {
  printf 'Quilom++ - Tamil Fonts Converter settings\r\n`````From Index\r\n%s\r\n`````To Index\r\n%s\r\n`````Uni Index\r\n%s\r\n`````NonUni Index\r\n%s\r\n`````IrRiRee Form\r\n%s\r\n`````Plain Text\r\n%s\r\n`````Vowel Signs\r\n%s\r\n`````Quotes Format\r\n%s' \
    "$@" | iconv -f utf-8 -t utf-16le | { printf '\xff\xfe'; cat; } >"$SETTINGS"
}

setting() {  # KEY -> its value line
  iconv -f utf-16 -t utf-8 "$SETTINGS" | tr -d '\r' | awk -v key="\`\`\`\`\`$1" 'found { print; exit } $0 == key { found = 1 }'
}

start_host() {  # extra host switches
  HOST_PID=""
  wine "$HOST_EXE" --data "$(winpath "$WORK/Sorvin")" --log "$(winpath "$WORK/log.txt")" \
    --ready-file "$(winpath "$WORK/ready")" --exit-when "$(winpath "$WORK/stop")" "$@" </dev/null >"$WORK/host.out" 2>&1 &
  HOST_PID=$!
  for _ in $(seq 300); do [ -s "$WORK/ready" ] && break; sleep 0.1; done
  [ -s "$WORK/ready" ] || fail "the converter window did not load"
  WID=$(timeout 20 xdotool search --sync --onlyvisible --name '^Quilom\+\+ : Tamil Fonts Converter$' | head -1)
  [ -n "$WID" ] || fail "the converter window was not found"
  # A real click makes it Wine's foreground window (an empty spot of the options box).
  xdotool windowfocus --sync "$WID" 2>/dev/null || true
  xdotool mousemove --window "$WID" 330 320 click 1
  sleep 0.3
}

keys() { xdotool key --delay 80 "$@"; sleep 0.3; }

wait_log() {  # TEXT [SECONDS]: a log line that begins with TEXT
  local deadline=$((SECONDS + ${2:-15}))
  until grep -qF -- "$1" "$WORK/log.txt" 2>/dev/null && grep -F -- "$1" "$WORK/log.txt" | grep -q "^${1:0:8}"; do
    [ $SECONDS -ge $deadline ] && fail "no log line starting '$1'"
    sleep 0.1
  done
}

message_count() { grep -c '^message: ' "$WORK/log.txt" 2>/dev/null || true; }

# Answers the message box on screen with a key ("Return", "y", "n").
answer() {
  local box
  box=$(timeout 10 xdotool search --sync --onlyvisible --name '^Quilom\+\+$' | head -1)
  [ -n "$box" ] || fail "no message box to answer"
  xdotool windowfocus --sync "$box" 2>/dev/null || true
  keys "$1"
}

shot() { import -window root "$SHOTS/$1.png" 2>/dev/null || echo "screenshot $1 failed" >&2; }

prepare_data() { cp -r "$(dirname "$HOST_EXE")/Sorvin" "$WORK/Sorvin"; }

# Positions in the shipped encodings list.
ANJAL=1
TAM=22
TSCII=23

case $scenario in
  not-started)
    prepare_data
    start_host
    shot converter-window
    keys alt+c
    wait_log "message: You have not started MS Word yet. Or, you have not opened any MS Word document yet."
    shot message-not-started
    answer Return
    [ "$(message_count)" = 1 ] || fail "more than the one message"
    ;;
  no-document)
    prepare_data
    start_host --fake-word 0
    keys alt+c
    wait_log "message: You have not opened any MS Word document yet. Or, you have not started MS Word yet."
    answer Return
    ;;
  backup-no)
    prepare_data
    write_settings $TSCII 0 1 2 0 0 1 1
    start_host --fake-word 1
    keys alt+c
    wait_log "message: Kindly PLEASE ENSURE that you have taken a BACKUP"
    shot message-backup
    answer n
    sleep 1
    [ "$(message_count)" = 1 ] || fail "a message after No to the backup question"
    ! grep -q 'Execute' "$WORK/log.txt" || fail "converted after No"
    ;;
  same-encoding)
    prepare_data
    write_settings $TSCII $TSCII 1 2 0 0 1 1
    start_host --fake-word 1
    keys alt+c
    wait_log "message: Kindly PLEASE ENSURE"
    answer y
    wait_log "message: Same encoding chosen for 'From' and 'To' encodings"
    answer Return
    ;;
  no-suitable-font)
    prepare_data
    write_settings $ANJAL 0 1 0 0 0 1 1
    start_host --fake-word 1
    keys alt+c
    wait_log "message: Kindly PLEASE ENSURE"
    answer y
    wait_log "message: No suitable font found in your system to match the NonUnicode font encoding you have currently selected"
    answer Return
    ;;
  legacy-to-legacy)
    prepare_data
    write_settings $TSCII $TAM 1 2 0 0 1 1
    start_host --fake-word 1
    keys alt+c
    wait_log "message: Kindly PLEASE ENSURE"
    answer y
    wait_log "message: First, convert your text in 'Tscii' font(s) to Unicode. Then, convert the resultant Unicode text to 'Tam' font."
    shot message-legacy-to-legacy
    answer Return
    ;;
  convert-run)
    prepare_data
    write_settings $TSCII 0 0 2 0 0 1 1
    start_host --fake-word 1
    keys alt+c
    wait_log "message: Kindly PLEASE ENSURE"
    answer y
    table="$WORK/Sorvin/Tamil Fonts Converter/tables/$((TSCII + 100)).txt"
    expected=$(iconv -f utf-16 -t utf-8 "$table" | tr -d '\r' | awk -F' ' '$1 != ""' | wc -l)
    deadline=$((SECONDS + 60))
    while [ "$(grep -c 'Find.Execute(' "$WORK/log.txt" || true)" -lt "$expected" ]; do
      [ $SECONDS -ge $deadline ] && fail "$(grep -c 'Find.Execute(' "$WORK/log.txt") of $expected replace-alls"
      sleep 0.2
    done
    sleep 1
    [ "$(grep -c 'Find.Execute(' "$WORK/log.txt")" = "$expected" ] || fail "more replace-alls than table pairs"
    grep -q '^call ActiveDocument.Content.Find.Execute(FindText=.*MatchCase=True,.*Wrap=0,.*Replace=2)$' "$WORK/log.txt" ||
      fail "Execute without the whole-document options"
    grep -q '^put ActiveDocument.Content.Find.Font.Name=TSCu_' "$WORK/log.txt" || fail "no legacy font to find"
    grep -q '^put ScreenUpdating=False$' "$WORK/log.txt" || fail "screen updating not turned off"
    grep -q '^call ActiveDocument.UndoClear()$' "$WORK/log.txt" || fail "undo list not cleared"
    shot converter-after-run
    ;;
  plain-text)
    prepare_data
    write_settings $TSCII 0 1 2 0 0 1 1
    start_host
    keys alt+p
    wait_log "message: PLEASE NOTE THE FOLLOWING WELL:"
    shot message-plain-text
    answer Return   # No is the default button
    sleep 0.5
    [ "$(setting 'Plain Text')" = 0 ] || fail "Plain Text is '$(setting 'Plain Text')' after No"
    keys alt+p
    for _ in $(seq 50); do [ "$(message_count)" = 2 ] && break; sleep 0.1; done
    answer y
    sleep 0.5
    [ "$(setting 'Plain Text')" = 1 ] || fail "Plain Text is '$(setting 'Plain Text')' after Yes"
    keys alt+v
    [ "$(setting 'Vowel Signs')" = 0 ] || fail "Vowel Signs not saved at its click"
    keys alt+d
    [ "$(setting 'Quotes Format')" = 2 ] || fail "Quotes Format not saved at its click"
    ;;
  lists-and-quotes)
    prepare_data
    write_settings 0 $TSCII 1 2 0 0 1 1
    start_host
    shot converter-unicode-to-tscii
    # The restored selection fills the quote lists; the From list moves with the keyboard
    # and is saved at once; Swap exchanges the two sides.
    keys alt+w
    [ "$(setting 'From Index')" = $TSCII ] || fail "From Index is '$(setting 'From Index')' after Swap"
    [ "$(setting 'To Index')" = 0 ] || fail "To Index is '$(setting 'To Index')' after Swap"
    keys alt+f Down
    [ "$(setting 'From Index')" = $((TSCII + 1)) ] || fail "From Index is '$(setting 'From Index')' after Down"
    keys Tab Down
    [ "$(setting 'To Index')" = 1 ] || fail "To Index is '$(setting 'To Index')' after Tab and Down"
    ;;
  word-fails)
    # Word refuses the third replace-all: the report names the routine, Word's own error and
    # the pair reached, and nothing after it is tried.
    prepare_data
    write_settings $TSCII 0 1 2 0 0 1 1
    start_host --fake-word 1 --fail Execute,3
    keys alt+c
    wait_log "message: Kindly PLEASE ENSURE"
    answer y
    wait_log "report: " 30
    grep '^report: ' "$WORK/log.txt" | grep -q "module: 'TFC - L2U'" || fail "the report does not name the routine"
    grep '^report: ' "$WORK/log.txt" | grep -q "Source: Stand-in Word" || fail "the report lacks Word's source"
    grep '^report: ' "$WORK/log.txt" | grep -q "Command failed (the conversion stopped at pair 3 of " ||
      fail "the report lacks Word's error or the pair reached"
    shot report-word-failed
    answer Return
    sleep 0.5
    [ "$(grep -c 'Find.Execute(' "$WORK/log.txt")" = 3 ] || fail "replace-alls went on after the failure"
    grep -q '^put ScreenUpdating=True$' "$WORK/log.txt" || fail "screen updating left off"
    ;;
  stale-fonts-list)
    # A fonts list made when the system had other fonts is regenerated after the message, and
    # the rewritten file holds the header and one line per system font.
    prepare_data
    fonts_list="$WORK/Sorvin/Tamil Fonts Converter/QuilomPlus-WinFontsList.txt"
    printf 'List of all fonts present in the system\r\nGone Font\r\nOther Gone Font' | iconv -f utf-8 -t utf-16le |
      { printf '\xff\xfe'; cat; } >"$fonts_list"
    wine "$HOST_EXE" --data "$(winpath "$WORK/Sorvin")" --log "$(winpath "$WORK/log.txt")" \
      --exit-when "$(winpath "$WORK/stop")" </dev/null >"$WORK/host.out" 2>&1 &
    HOST_PID=$!
    wait_log "message: Fonts have got added or deleted in your system recently (Earlier - 2. Now - " 30
    shot message-fonts-list
    now=$(grep -o 'Now - [0-9]*' "$WORK/log.txt" | head -1 | cut -d' ' -f3)
    answer Return
    for _ in $(seq 100); do
      [ "$(iconv -f utf-16 -t utf-8 "$fonts_list" | tr -d '\r' | head -1)" = "List of all fonts present in the system" ] &&
        [ "$(iconv -f utf-16 -t utf-8 "$fonts_list" | grep -c '')" = $((now + 1)) ] && break
      sleep 0.1
    done
    [ "$(iconv -f utf-16 -t utf-8 "$fonts_list" | grep -c '')" = $((now + 1)) ] ||
      fail "the fonts list has $(iconv -f utf-16 -t utf-8 "$fonts_list" | grep -c '') lines for $now fonts"
    ! iconv -f utf-16 -t utf-8 "$fonts_list" | grep -q 'Gone Font' || fail "the old fonts list is still there"
    ;;
  convert-quotes)
    prepare_data
    write_settings 0 $TSCII 1 2 0 0 1 1
    start_host --fake-word 1
    keys alt+e
    for _ in $(seq 100); do grep -q 'Find.Execute(' "$WORK/log.txt" 2>/dev/null && break; sleep 0.1; done
    sleep 1
    [ "$(grep -c 'Find.Execute(' "$WORK/log.txt")" = 1 ] || fail "not one replace-all for the quote"
    grep -q "^call ActiveDocument.Content.Find.Execute(FindText=',.*ReplaceWith=[^,]*,Replace=2)$" "$WORK/log.txt" ||
      fail "the single quote was not the text to find"
    grep -q '^put ActiveDocument.Content.Find.Replacement.Font.Name=TSCu_Comic$' "$WORK/log.txt" ||
      fail "the quote was not given the legacy font"
    [ "$(message_count)" = 0 ] || fail "a message during the quote conversion"
    ;;
  selection-question)
    prepare_data
    write_settings $TSCII 0 1 2 0 0 1 1
    start_host --fake-word 1 --selection 3,9
    keys alt+c
    wait_log "message: Kindly PLEASE ENSURE"
    answer y
    wait_log "message: You have selected some text in your document."
    shot message-selection
    answer Escape
    wait_log "message: Your response was neither 'Yes' nor 'No'. So, did not go ahead with any conversion."
    answer Return
    ! grep -q 'Execute' "$WORK/log.txt" || fail "converted after Cancel"
    ;;
  *)
    echo "unknown scenario $scenario" >&2
    exit 2
    ;;
esac
echo "PASS ($scenario)"
