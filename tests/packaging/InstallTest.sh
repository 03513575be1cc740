#!/usr/bin/env bash
# What is installed into an empty directory does the main job from there, called by the link in bin/.
#   InstallTest.sh SOURCES BUILD
set -euo pipefail
sources=$1
build=$2
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

DESTDIR=$root cmake --install "$build" --prefix /usr >"$root/installed"
orvane=$root/usr/bin/orvane
[ -L "$orvane" ] || fail "bin/orvane is not a link"
home=$(dirname "$(readlink -f "$orvane")")
[ -f "$home/orvane.chm" ] || fail "the help does not stand beside the program"

cd "$root/usr/share/doc/orvane/examples"
[ "$(ls ./*.trs | wc -l)" -eq "$(ls "$sources"/examples/*.trs | wc -l)" ] || fail "examples are missing"
"$orvane" --report=solutions triangle.trs | grep -q '^ *AC  707.1$' || fail "the triangle has other forces"

for file in applications/orvane.desktop mime/packages/application-x-orvane-truss.xml man/man1/orvane.1 \
  metainfo/org.orvane.orvane.metainfo.xml bash-completion/completions/orvane icons/hicolor/scalable/apps/orvane.svg \
  icons/hicolor/48x48/apps/orvane.png icons/hicolor/48x48/mimetypes/application-x-orvane-truss.png; do
  [ -s "$root/usr/share/$file" ] || fail "$file is not installed"
done

# The desktop file calls a program that is there, and names an icon that is there.
grep -q '^Exec=orvane %' "$root/usr/share/applications/orvane.desktop" || fail "the desktop file calls something else"
grep -q '^Icon=orvane$' "$root/usr/share/applications/orvane.desktop" || fail "the desktop file has another icon"
# Nothing of it depends on where it was built.
! grep -q "$sources" "$root"/usr/share/*/*.desktop "$root"/usr/share/man/man1/* || fail "a path of the build is installed"
echo "passed"
