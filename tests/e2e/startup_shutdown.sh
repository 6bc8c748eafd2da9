#!/usr/bin/env bash
# The whole program under Xvfb, as a new user would try it:
# `vistrel <folder>` opens a window; File > Exit writes the settings file;
# with StartOption 1 a second start reopens that folder; on a German desktop it speaks German.
# Usage: startup_shutdown.sh PATH_TO_VISTREL SAMPLES_FOLDER
set -euo pipefail
binary=$1
samples=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$binary" "$work/vistrel"  # a writable program folder: Ini.in is written beside it (portable use)
cp -r "$samples" "$work/My Pictures"
settings="$work/Ini.in"

fail() { echo "FAIL: $*"; exit 1; }

source "$(dirname "$0")/window.sh"

# The line `offset` places after the section title `title` ("File" 1 is the kind of what
# was open); `entry TITLE OFFSET VALUE` rewrites it.
entry() {
  awk -v t="$1" -v n="$2" -v v="${3-}" 'BEGIN { k = -1 }
    { sub(/\r$/, "") } $0 == t && k < 0 { k = NR + n }
    NR == k && v == "" { print; exit } { if (v != "") printf "%s\r\n", (NR == k ? v : $0) }' "$settings"
}
set_entry() { entry "$1" "$2" "$3" > "$settings.new" && mv "$settings.new" "$settings"; }

run_and_exit "$work/vistrel" "$work/My Pictures/" || fail "first run did not open and close (exit $?)"
[ -f "$settings" ] || fail "no settings file was written"
[ "$(grep -c $'\r$' "$settings")" -eq "$(wc -l < "$settings")" ] || fail "settings lines are not CRLF"
[ "$(head -n 1 "$settings" | tr -d '\r')" = "Vistrel 6.2" ] || fail "header is '$(head -n 1 "$settings")'"
[ "$(entry File 1)" = "2" ] || fail "LastOpenKind is '$(entry File 1)', not 2"
[ "$(entry File 2)" = "$work/My Pictures" ] || fail "LastFolder is '$(entry File 2)'"
[ "$(entry "Recent folders" 1)" = "$work/My Pictures" ] || fail "recent folder 0 is '$(entry "Recent folders" 1)'"

set_entry Options 1 1  # StartOption 1: open the last folder
[ "$(entry Options 1)" = "1" ] || fail "could not set StartOption"
run_and_exit "$work/vistrel" || fail "second run did not open and close (exit $?)"
[ "$(entry File 1)" = "2" ] || fail "start option 1 did not reopen the folder (LastOpenKind '$(entry File 1)')"
[ "$(entry File 2)" = "$work/My Pictures" ] || fail "start option 1 reopened '$(entry File 2)'"
[ "$(entry Options 1)" = "1" ] || fail "StartOption was not kept"
# A name that is not UTF-8 (Latin-1, from an old disk) opens from the command line.
latin1="$work/caf"$'\xe9'".png"
cp "$(ls "$work/My Pictures/"*.png | head -n 1)" "$latin1"
run_and_exit "$work/vistrel" "$latin1" || fail "a Latin-1 file name did not open and close (exit $?)"
[ "$(entry File 1)" = "1" ] || fail "a Latin-1 file name was not opened (LastOpenKind '$(entry File 1)')"
# On a German desktop the program speaks German: File > Properties opens "Eigenschaften".
LC_ALL=de_DE.UTF-8 LANGUAGE= xvfb-run -a -s '-screen 0 1280x800x24' bash -c "$e2e_helpers"'
  "$1" "$2" 2>/dev/null &
  pid=$!
  wid=$(timeout 20 xdotool search --sync --onlyvisible --name "Vistrel$" | head -n 1) || { kill $pid; exit 3; }
  for _ in $(seq 20); do
    xdotool windowfocus --sync "$wid" key --clearmodifiers alt+Return 2>/dev/null
    props=$(timeout 1 xdotool search --sync --onlyvisible --name "^Eigenschaften$" | head -n 1) && break
  done
  [ -n "${props:-}" ] || { kill $pid; exit 5; }
  xdotool windowfocus --sync "$props" key Escape
  until_gone "^Eigenschaften$" || { kill $pid; exit 6; }
  exit_program "$wid" $pid || { kill $pid; exit 4; }
  wait $pid' _ "$work/vistrel" "$latin1" || fail "the German Properties window did not come and go (exit $?)"
echo "e2e startup/shutdown: 1 passed, 0 failed"
