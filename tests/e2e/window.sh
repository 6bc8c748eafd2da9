# Sourced by the end-to-end tests. run_and_exit PROGRAM [ARGUMENT...] starts the program
# under Xvfb, waits for its window, chooses File > Exit with the keyboard and waits for
# the program to end; it fails with 3 when no window came and 4 when it did not end.
run_and_exit() {
  xvfb-run -a -s '-screen 0 1280x800x24' bash -c '
    "$@" 2>/dev/null &
    pid=$!
    wid=$(timeout 20 xdotool search --sync --onlyvisible --name "Vistrel$" | head -n 1) || { kill $pid; exit 3; }
    sleep 0.5
    xdotool windowfocus --sync "$wid" key --clearmodifiers ctrl+q
    for _ in $(seq 100); do kill -0 $pid 2>/dev/null || break; sleep 0.1; done
    if kill -0 $pid 2>/dev/null; then kill $pid; exit 4; fi
    wait $pid' _ "$@"
}
