#!/usr/bin/env bash
# An animated GIF under Xvfb: red, lime and blue frames of 300 ms, looping. Screenshots taken
# as it plays show the three colours, each followed by the next in the file's order.
# Usage: animation.sh PATH_TO_VISTREL
set -euo pipefail
binary=$1

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work XDG_CONFIG_HOME=$work/config
cp "$binary" "$work/vistrel"  # a writable program folder of its own: Ini.in is written beside it
convert -delay 30 -size 400x300 xc:red xc:lime xc:blue -loop 0 "$work/moving.gif"

source "$(dirname "$0")/window.sh"
xvfb-run -a -s '-screen 0 1280x800x24' bash -c "$e2e_helpers"'
  work=$2
  shown() {
    import -window root "$work/shot.png" &&
      convert "$work/shot.png" -format "%[fx:int(255*p{640,430}.r)] %[fx:int(255*p{640,430}.g)] %[fx:int(255*p{640,430}.b)]" info:
  }
  "$1" "$work/moving.gif" 2>/dev/null &
  pid=$!
  wid=$(timeout 20 xdotool search --sync --onlyvisible --name "^moving.gif - Vistrel$" | head -n 1) || { kill $pid; exit 3; }
  seen=""
  for _ in $(seq 200); do
    case "$(shown)" in
      "255 0 0") colour=R ;; "0 255 0") colour=G ;; "0 0 255") colour=B ;; *) colour="" ;;
    esac
    [ -n "$colour" ] && [ "${seen: -1}" != "$colour" ] && seen=$seen$colour
    [ ${#seen} -ge 6 ] && break
  done
  echo "colours in turn: $seen" >&2
  exit_program "$wid" $pid || { kill $pid; exit 4; }
  wait $pid
  case "$seen" in *RGBRGB*|*GBRGBR*|*BRGBRG*) exit 0 ;; *) exit 5 ;; esac' _ "$work/vistrel" "$work" || { echo "FAIL: the frames did not play in order (exit $?)"; exit 1; }
echo "e2e animation: 1 passed, 0 failed"
