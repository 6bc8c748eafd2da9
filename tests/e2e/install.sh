#!/usr/bin/env bash
# Installs into a temporary DESTDIR and moves the tree elsewhere (a relocated install).
# The installed vistrel-cli finds its metafile helper; the installed vistrel opens a
# picture under Xvfb and keeps its settings per user, not beside itself; the desktop
# entry, the AppStream record and the manual pages pass their validators; the desktop
# recognises every corpus image as a type the entry opens.
# Usage: install.sh BUILD_FOLDER CORPUS_FOLDER
set -euo pipefail
build=$1
corpus=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*"; exit 1; }
source "$(dirname "$0")/window.sh"

DESTDIR="$work/stage" cmake --install "$build" --prefix /usr >/dev/null
mkdir -p "$work/elsewhere" "$work/home"
mv "$work/stage/usr" "$work/elsewhere/vistrel"
root="$work/elsewhere/vistrel"
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local/share"
export XDG_CACHE_HOME="$work/home/.cache" XDG_DATA_DIRS="$root/share:/usr/share"

for file in bin/vistrel bin/vistrel-cli libexec/vistrel/vistrel-emf libexec/vistrel/vistrel-raw; do
  [ -x "$root/$file" ] || fail "$file is not installed"
done
for size in scalable 16x16 48x48 256x256; do
  ls "$root/share/icons/hicolor/$size/apps/vistrel."* >/dev/null || fail "no $size application icon"
done
"$root/bin/vistrel-cli" --version | grep -q '^vistrel-cli ' || fail "the installed vistrel-cli does not run"
"$root/bin/vistrel-cli" info "$corpus/formats/drawing.emf" | grep -q $'\tEMF\t' ||
  fail "the installed vistrel-cli does not read a metafile"

run_and_exit "$root/bin/vistrel" "$corpus/formats/hopper.png" || fail "the installed vistrel did not open and close (exit $?)"
[ -f "$XDG_CONFIG_HOME/vistrel/Ini.in" ] || fail "the installed vistrel kept no settings in the user's folder"
[ ! -e "$root/bin/Ini.in" ] || fail "the installed vistrel wrote its settings beside itself"

desktop="$root/share/applications/vistrel.desktop"
desktop-file-validate "$desktop" || fail "the desktop entry is not valid"
appstreamcli validate --no-net "$root/share/metainfo/"*.metainfo.xml >/dev/null || fail "the AppStream record is not valid"
for page in vistrel vistrel-cli; do
  warnings=$(MANWIDTH=80 man --warnings -l "$root/share/man/man1/$page.1.gz" 2>&1 >/dev/null)
  [ -z "$warnings" ] || fail "$page.1 has warnings: $warnings"
done
manual=$(MANWIDTH=200 man -l "$root/share/man/man1/vistrel-cli.1.gz" 2>/dev/null | sed -n '/^COMMANDS/,/^EXIT STATUS/p')
for verb in $("$root/bin/vistrel-cli" --help | awk '$2 != "vistrel-cli" {print $2} $2 == "vistrel-cli" {print $3}' | grep -v '^--' | sort -u); do
  grep -q "^ *$verb" <<<"$manual" || fail "the manual page does not describe '$verb'"
done

# Every image of the corpus is one of the types the desktop entry offers to open.
update-mime-database "$root/share/mime"
types=";$(sed -n 's/^MimeType=//p' "$desktop")"
for image in "$corpus"/formats/*; do
  type=$(gio info -a standard::content-type "$image" | sed -n 's/.*content-type: //p')
  [[ "$types" == *";$type;"* ]] || fail "$(basename "$image") is $type, which the desktop entry does not open"
done
echo "e2e install: 1 passed, 0 failed"
