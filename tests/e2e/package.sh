#!/usr/bin/env bash
# Builds the Debian package, which lintian must pass without errors, installs it with
# dpkg, reads a metafile with /usr/bin/vistrel-cli (its helper from /usr/libexec), sees
# the desktop learn the types Vistrel describes, and removes it: nothing stays behind.
# Needs root and a machine without the package; skipped otherwise.
# Usage: package.sh BUILD_FOLDER CORPUS_FOLDER
set -euo pipefail
build=$1
corpus=$2
fail() { echo "FAIL: $*"; exit 1; }
if [ "$(id -u)" -ne 0 ] || dpkg-query -W vistrel >/dev/null 2>&1; then
  echo "e2e package: skipped (needs root and no installed vistrel package)"
  exit 0
fi
work=$(mktemp -d)
trap 'dpkg -r vistrel >/dev/null 2>&1 || true; rm -rf "$work"' EXIT

(cd "$work" && cpack -G DEB --config "$build/CPackConfig.cmake" >/dev/null 2>&1) || fail "cpack did not build the package"
package=$(ls "$work"/vistrel_*.deb)
verdict=0
report=$(lintian --fail-on error "$package" 2>&1) || verdict=$?
grep -v '^running with root' <<<"$report" || true
[ "$verdict" -eq 0 ] || fail "lintian reports errors"

content_type() { gio info -a standard::content-type "$1" | sed -n 's/.*content-type: //p'; }
dpkg -i "$package" >/dev/null || fail "dpkg could not install the package"
files=$(dpkg -L vistrel | while read -r path; do [ -f "$path" ] && echo "$path"; done)
/usr/bin/vistrel-cli info "$corpus/formats/drawing.emf" | grep -q $'\tEMF\t' || fail "the installed vistrel-cli does not read a metafile"
man -w vistrel-cli >/dev/null || fail "man does not find vistrel-cli"
[ "$(XDG_DATA_HOME=$work content_type "$corpus/formats/hopper.dcx")" = image/x-dcx ] ||
  fail "the installed MIME package does not name DCX files"

dpkg -r vistrel >/dev/null || fail "dpkg could not remove the package"
left=$(for path in $files; do [ -e "$path" ] && echo "$path"; done || true)
[ -z "$left" ] || fail "removing the package left $left"
status=$(dpkg-query -W -f='${db:Status-Status}' vistrel 2>/dev/null || true)
[ -z "$status" ] || [ "$status" = not-installed ] || fail "dpkg still knows the package ($status)"
[ "$(XDG_DATA_HOME=$work content_type "$corpus/formats/hopper.dcx")" != image/x-dcx ] || fail "DCX files are still named after removal"
echo "e2e package: 1 passed, 0 failed"
