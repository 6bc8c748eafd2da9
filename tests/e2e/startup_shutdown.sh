#!/usr/bin/env bash
# The whole program under Xvfb, as a new user would try it:
# `vistrel <folder>` opens a window; File > Exit writes the 56-line settings file;
# with StartOption 1 a second start reopens that folder.
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

line() { sed -n "${1}p" "$settings" | tr -d '\r'; }

run_and_exit "$work/vistrel" "$work/My Pictures/" || fail "first run did not open and close (exit $?)"
[ -f "$settings" ] || fail "no settings file was written"
[ "$(wc -l < "$settings")" -eq 56 ] || fail "settings file has $(wc -l < "$settings") lines, not 56"
[ "$(grep -c $'\r$' "$settings")" -eq 56 ] || fail "settings lines are not CRLF"
[ "$(line 1)" = "Vistrel 6.2" ] || fail "header is '$(line 1)'"
[ "$(line 12)" = "2" ] || fail "LastOpenKind is '$(line 12)', not 2"
[ "$(line 13)" = "$work/My Pictures" ] || fail "LastFolder is '$(line 13)'"
[ "$(line 16)" = "$work/My Pictures" ] || fail "recent folder 0 is '$(line 16)'"

sed -i '45s/^.*\r$/1\r/' "$settings"  # StartOption 1: open the last folder
[ "$(line 45)" = "1" ] || fail "could not set StartOption"
run_and_exit "$work/vistrel" || fail "second run did not open and close (exit $?)"
[ "$(line 12)" = "2" ] || fail "start option 1 did not reopen the folder (LastOpenKind '$(line 12)')"
[ "$(line 13)" = "$work/My Pictures" ] || fail "start option 1 reopened '$(line 13)'"
[ "$(line 45)" = "1" ] || fail "StartOption was not kept"
# A name that is not UTF-8 (Latin-1, from an old disk) opens from the command line.
latin1="$work/caf"$'\xe9'".png"
cp "$(ls "$work/My Pictures/"*.png | head -n 1)" "$latin1"
run_and_exit "$work/vistrel" "$latin1" || fail "a Latin-1 file name did not open and close (exit $?)"
[ "$(line 12)" = "1" ] || fail "a Latin-1 file name was not opened (LastOpenKind '$(line 12)')"
echo "e2e startup/shutdown: 1 passed, 0 failed"
