# A second start restores and fronts the first window, then ends without a window of its own.
start_quilom
start_target
click_target
wait_for_state active 0 5 || fail "the target did not take the foreground"
timeout 30 wine "$QUILOM_EXE" </dev/null >"$WORK/second.out" 2>&1 || fail "the second start did not end by itself"
wait_for_state active 1 10 || fail "the first window was not brought to the front"
[ "$(quilom_state iconic)" = 0 ] || fail "the first window is still minimised"
windows=$(xdotool search --onlyvisible --name '^Quilom\+\+ : Direct Tamil' | wc -l)
[ "$windows" -eq 1 ] || fail "$windows main windows are open"
screenshot second_start_fronts_first
