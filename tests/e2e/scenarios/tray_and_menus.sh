# The tray icon is there while the program runs and goes with Exit from the tray menu; a Tools
# menu entry opens its window. Wine cannot tell where the icon is (Shell_NotifyIconGetRect
# fails), so the icon is clicked where Wine's virtual desktop puts a lone tray icon.
tray_x=1013 tray_y=690
start_quilom
[ "$(quilom_state tray)" = 1 ] || fail "no tray icon after the start"
sleep 2.5  # Wine draws a balloon up to 3 s after it is asked for
screenshot startup_balloon
menu=$(quilom_state toolsmenu)
click_window "$QUILOM_WID" "${menu%,*}" "${menu#*,}"
screenshot tools_menu
xdotool key u
url_window=$(timeout 10 xdotool search --sync --onlyvisible --name '^Quilom\+\+ - URL Normalizer$' | head -1)
[ -n "$url_window" ] || fail "Tools > URL Normalizer opened no window"
screenshot url_normalizer_from_tools_menu
xdotool mousemove "$tray_x" "$tray_y" click 3
sleep 1
screenshot tray_menu
xdotool key x
sleep 1
screenshot exit_question
xdotool key Return
for _ in $(seq 100); do kill -0 "$QUILOM_PID" 2>/dev/null || break; sleep 0.1; done
kill -0 "$QUILOM_PID" 2>/dev/null && fail "Exit from the tray menu did not end the program"
[ "$(quilom_state tray)" = 0 ] || fail "the tray icon was still up at exit"
stop_programs
