#!/usr/bin/env bash
# An edit through the whole program under Xvfb, as a user would: open a photo, Colors >
# Negative and Image > Rotate... 90 from the keyboard, File > Save, File > Exit; the saved
# file must hold exactly what `vistrel-cli apply` makes of the original.
# Usage: edit_and_save.sh PATH_TO_VISTREL PATH_TO_VISTREL_CLI PHOTO
set -euo pipefail
binary=$1
cli=$2
photo=$3

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$binary" "$work/vistrel"
cp "$photo" "$work/photo.png"
"$cli" apply "$photo" "$work/expected.png" Negative Rotate 90

source "$(dirname "$0")/window.sh"
xvfb-run -a -s '-screen 0 1280x800x24' bash -c "$e2e_helpers"'
  "$1" "$2" 2>/dev/null &
  pid=$!
  wid=$(timeout 20 xdotool search --sync --onlyvisible --name "^photo.png - Vistrel$" | head -n 1) || { kill $pid; exit 3; }
  xdotool windowfocus --sync "$wid" key --clearmodifiers alt+c n
  until_title "$wid" "photo.png\* - Vistrel" || { kill $pid; exit 6; }  # Negative marks it changed
  xdotool key --clearmodifiers alt+i r
  timeout 10 xdotool search --sync --onlyvisible --name "^Rotate$" >/dev/null || { kill $pid; exit 4; }
  xdotool key --clearmodifiers ctrl+a type 90
  xdotool key --clearmodifiers Return
  until_gone "^Rotate$" || { kill $pid; exit 7; }
  xdotool windowfocus --sync "$wid" key --clearmodifiers ctrl+s
  until_title "$wid" "^photo.png - Vistrel$" || { kill $pid; exit 8; }  # saved: the mark goes
  exit_program "$wid" $pid || { kill $pid; exit 5; }
  wait $pid' _ "$work/vistrel" "$work/photo.png" || { echo "FAIL: the program did not edit, save and close (exit $?)"; exit 1; }

differing=$(compare -metric AE "$work/photo.png" "$work/expected.png" null: 2>&1 || true)
[ "$differing" = "0" ] || { echo "FAIL: the saved photo differs from vistrel-cli's in $differing pixels"; exit 1; }
echo "e2e edit and save: 1 passed, 0 failed"
