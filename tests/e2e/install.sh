#!/usr/bin/env bash
# Installs into a temporary DESTDIR, moves the tree elsewhere (a relocated install), and
# runs the installed vistrel-cli, which finds its metafile helper beside it; the desktop
# entry is valid.
# Usage: install.sh BUILD_FOLDER CORPUS_FOLDER
set -euo pipefail
build=$1
corpus=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

DESTDIR="$work/stage" cmake --install "$build" --prefix /usr >/dev/null
mkdir -p "$work/elsewhere"
mv "$work/stage/usr" "$work/elsewhere/vistrel"
root="$work/elsewhere/vistrel"
for file in bin/vistrel bin/vistrel-cli libexec/vistrel/vistrel-emf; do
  [ -x "$root/$file" ] || fail "$file is not installed"
done
[ -f "$root/share/icons/hicolor/scalable/apps/vistrel.svg" ] || fail "the application icon is not installed"
"$root/bin/vistrel-cli" --version | grep -q '^vistrel-cli ' || fail "the installed vistrel-cli does not run"
"$root/bin/vistrel-cli" info "$corpus/formats/drawing.emf" | grep -q $'\tEMF\t' ||
  fail "the installed vistrel-cli does not read a metafile"
desktop-file-validate "$root/share/applications/vistrel.desktop" || fail "the desktop entry is not valid"
echo "e2e install: 1 passed, 0 failed"
