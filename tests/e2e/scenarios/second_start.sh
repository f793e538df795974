# A second start restores the minimised first window, fronts it, and ends without a window of
# its own.
start_target
wine start /min "$(winpath "$QUILOM_EXE")" --state-file "$(winpath "$WORK/quilom.state")" \
  --exit-when "$(winpath "$WORK/stop")" </dev/null >"$WORK/quilom.out" 2>&1
wait_for_file "$WORK/quilom.state" 30 || fail "Quilom++ did not get ready"
wait_for_state iconic 1 10 || fail "the first copy did not start minimised"
click_target
wait_for_state active 0 5 || fail "the target did not take the foreground"
screenshot second_start_before
timeout 30 wine "$QUILOM_EXE" </dev/null >"$WORK/second.out" 2>&1 || fail "the second start did not end by itself"
wait_for_state iconic 0 10 || fail "the first window was not restored"
wait_for_state active 1 10 || fail "the first window was not brought to the front"
windows=$(xdotool search --onlyvisible --name '^Quilom\+\+ : Direct Tamil' | wc -l)
[ "$windows" -eq 1 ] || fail "$windows main windows are open"
screenshot second_start_fronts_first
