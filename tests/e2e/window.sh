# Sourced by the end-to-end tests. run_and_exit PROGRAM [ARGUMENT...] starts the program
# under Xvfb, waits for its window, chooses File > Exit with the keyboard and waits for
# the program to end; it fails with 3 when no window came and 4 when it did not end.
# Nothing sleeps for a guessed time: each step polls for its effect.

# The helpers the scripts run inside xvfb-run: waiting for the window's title to match, for
# a window to go, and for the program to end after File > Exit (the keys are sent again
# while it has not taken them yet).
e2e_helpers='
until_title() {  # WINDOW PATTERN: up to 10 s for the title to match
  for _ in $(seq 200); do xdotool getwindowname "$1" 2>/dev/null | grep -q -- "$2" && return 0; sleep 0.05; done
  return 1
}
until_gone() {  # NAME: up to 10 s for no visible window of that name
  for _ in $(seq 200); do xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0; sleep 0.05; done
  return 1
}
exit_program() {  # WINDOW PID: Ctrl+Q until the program has ended (up to 10 s)
  for _ in $(seq 20); do
    kill -0 "$2" 2>/dev/null || return 0
    xdotool windowfocus --sync "$1" key --clearmodifiers ctrl+q 2>/dev/null
    for _ in $(seq 10); do kill -0 "$2" 2>/dev/null || return 0; sleep 0.05; done
  done
  ! kill -0 "$2" 2>/dev/null
}
'

run_and_exit() {
  xvfb-run -a -s '-screen 0 1280x800x24' bash -c "$e2e_helpers"'
    "$@" 2>/dev/null &
    pid=$!
    wid=$(timeout 20 xdotool search --sync --onlyvisible --name "Vistrel$" | head -n 1) || { kill $pid; exit 3; }
    exit_program "$wid" $pid || { kill $pid; exit 4; }
    wait $pid' _ "$@"
}
