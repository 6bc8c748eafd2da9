#!/usr/bin/env bash
# The window on Wayland: a headless weston (its own runtime folder and socket, no X server)
# hosts the window suite and the full-screen view, natively on Qt's wayland platform.
# Left out are the cases that need keyboard focus or the clipboard, which a compositor
# grants only to a window the user has clicked or typed in (this one has no user, nor a
# seat), and typing into a text box, which Qt 6.4's Wayland plugin cannot do without a seat.
# Usage: wayland.sh PATH_TO_window_tests PATH_TO_view_tests
set -euo pipefail
window_tests=$1
view_tests=$2

runtime=$(mktemp -d)
chmod 700 "$runtime"
export XDG_RUNTIME_DIR=$runtime
weston --backend=headless-backend.so --socket=vistrel-e2e --width=1280 --height=800 >"$runtime/weston.log" 2>&1 &
compositor=$!
trap 'kill $compositor 2>/dev/null; wait $compositor 2>/dev/null; rm -rf "$runtime"' EXIT
for _ in $(seq 100); do [ -S "$runtime/vistrel-e2e" ] && break; sleep 0.05; done
[ -S "$runtime/vistrel-e2e" ] || { echo "FAIL: weston did not start"; cat "$runtime/weston.log"; exit 1; }

unset DISPLAY
export WAYLAND_DISPLAY=vistrel-e2e QT_QPA_PLATFORM=wayland
focused='frmMainCatalogueTest.CropWithoutASelection*:frmMainCatalogueTest.QuickTurns*:frmMainCatalogueTest.RotateNinety*'
focused+=':frmMainExchangeTest.Copy*:frmMainExchangeTest.APasted*:frmMainFileTest.PagesTurn*:frmMainAnimationTest.*'
focused+=':*frmMainMetafileTest.*:frmMainListTest.RenamingInPlace*'
"$window_tests" --gtest_brief=1 --gtest_filter="-$focused" || { echo "FAIL: the window suite on Wayland"; exit 1; }
"$view_tests" --gtest_brief=1 --gtest_filter='frmFull.*' || { echo "FAIL: the full-screen view on Wayland"; exit 1; }
echo "e2e wayland: 1 passed, 0 failed"
