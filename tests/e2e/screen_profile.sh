#!/usr/bin/env bash
# The screen's profile under Xvfb, as a colour manager publishes it: a flat sRGB picture is
# painted as it is; once _ICC_PROFILE on the root window holds an Adobe RGB profile, the
# painted pixels are lcms2's transform of that colour into it (within 2 levels); once the
# property goes, they are the sRGB colour again. No restart in between.
# Usage: screen_profile.sh PATH_TO_VISTREL PATH_TO_X11_ROOT_PROFILE
set -euo pipefail
binary=$1
setter=$2
profile=/usr/share/color/icc/ghostscript/a98.icc

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work XDG_CONFIG_HOME=$work/config
cp "$binary" "$work/vistrel"  # a writable program folder of its own: Ini.in is written beside it
convert -size 400x300 'xc:rgb(200,80,40)' "$work/flat.png"
vips icc_transform "$work/flat.png" "$work/judged.png" "$profile" --input-profile srgb --black-point-compensation
pixel() { convert "$1" -format '%[fx:int(255*p{'"$2"'}.r)] %[fx:int(255*p{'"$2"'}.g)] %[fx:int(255*p{'"$2"'}.b)]' info:; }
expected=$(pixel "$work/judged.png" "0,0")

source "$(dirname "$0")/window.sh"
xvfb-run -a -s '-screen 0 1280x800x24' bash -c "$e2e_helpers"'
  work=$4
  shown() { import -window root "$work/shot.png" && convert "$work/shot.png" -format "%[fx:int(255*p{640,430}.r)] %[fx:int(255*p{640,430}.g)] %[fx:int(255*p{640,430}.b)]" info:; }
  near() { read -r a b c <<<"$1"; read -r x y z <<<"$2"; for d in $((a-x)) $((b-y)) $((c-z)); do [ ${d#-} -le 2 ] || return 1; done; }
  until_shown() { for _ in $(seq 100); do near "$(shown)" "$1" && return 0; sleep 0.1; done; echo "shown: $(shown), wanted: $1" >&2; return 1; }
  "$1" "$4/flat.png" 2>/dev/null &
  pid=$!
  wid=$(timeout 20 xdotool search --sync --onlyvisible --name "^flat.png - Vistrel$" | head -n 1) || { kill $pid; exit 3; }
  until_shown "200 80 40" || { kill $pid; exit 4; }
  "$2" set "$3" || { kill $pid; exit 5; }
  until_shown "$5" || { kill $pid; exit 6; }
  "$2" remove || { kill $pid; exit 5; }
  until_shown "200 80 40" || { kill $pid; exit 7; }
  exit_program "$wid" $pid || { kill $pid; exit 8; }
  wait $pid' _ "$work/vistrel" "$setter" "$profile" "$work" "$expected" || { echo "FAIL: the screen profile was not followed (exit $?)"; exit 1; }
echo "e2e screen profile: 1 passed, 0 failed"
