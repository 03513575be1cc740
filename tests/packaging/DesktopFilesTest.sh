#!/usr/bin/env bash
# What a desktop reads about the program is well formed, and a truss file is known by its name and by its first line.
#   DesktopFilesTest.sh SOURCES BUILD
set -euo pipefail
sources=$1
build=$2
desktop=$sources/packaging/desktop
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# No validator has anything to say, not even a hint.
silent() {
  local said
  said=$("$@" 2>&1) || fail "$* says: $said"
  [ -z "$said" ] || fail "$* says: $said"
}

silent desktop-file-validate "$desktop/orvane.desktop"
silent xmllint --noout "$desktop"/*.xml "$sources"/packaging/icons/*.svg
silent mandoc -T lint "$build/packaging/orvane.1"
appstreamcli validate --pedantic --no-net "$desktop/org.orvane.orvane.metainfo.xml" >"$scratch/appstream" ||
  fail "appstreamcli: $(cat "$scratch/appstream")"

# The type of every example, by its name; of a truss without the ending, by its first line; and of no other text.
export XDG_DATA_HOME=$scratch/share XDG_DATA_DIRS=/usr/local/share:/usr/share
mkdir -p "$XDG_DATA_HOME/mime/packages"
cp "$desktop/application-x-orvane-truss.xml" "$XDG_DATA_HOME/mime/packages/"
silent update-mime-database "$XDG_DATA_HOME/mime"
# On a named desktop the question goes to the database of types, otherwise to "file", which knows no types of ours.
is_truss() { [ "$(XDG_CURRENT_DESKTOP=GNOME xdg-mime query filetype "$1")" = application/x-orvane-truss ]; }
for example in "$sources"/examples/*.trs; do
  is_truss "$example" || fail "$example is not known as a truss"
done
cp "$sources/examples/triangle.trs" "$scratch/triangle"
is_truss "$scratch/triangle" || fail "a truss without an ending is not known by its first line"
! is_truss "$sources/README.md" || fail "any text is taken for a truss"

# The icons have their sizes.
for side in 16 22 24 32 48 64 128 256; do
  for icon in orvane application-x-orvane-truss; do
    size=$(od -An -j16 -N8 -tu1 "$build/packaging/icons/$side/$icon.png" | awk '{print $1*16777216+$2*65536+$3*256+$4, $5*16777216+$6*65536+$7*256+$8}')
    [ "$size" = "$side $side" ] || fail "$icon.png of $side is $size"
  done
done

# Every option that the program tells has its line in the manual page and is completed.
# shellcheck source=/dev/null
source "$sources/packaging/completion/orvane"
completions() {
  COMP_WORDS=(orvane "$@")
  COMP_CWORD=$#
  COMPREPLY=()
  compopt() { :; }
  _orvane
  printf '%s\n' "${COMPREPLY[@]}"
}
told=$("$build/orvane" --help | grep -o -- '--[a-z]*' | sort -u)
[ "$(wc -l <<<"$told")" -ge 10 ] || fail "the help names hardly any option"
for option in $told; do
  grep -qF -- "${option//-/\\-}" "$build/packaging/orvane.1" || fail "the manual page leaves out $option"
  completions "$option" | grep -- "^$option=\?\$" >/dev/null || fail "$option is not completed"
done
[ "$(completions --csv = rr)" = rref ] || fail "the tables are not completed"
[ "$(completions --report = counting,rr)" = counting,rref ] || fail "the second section is not completed"
[ "$(completions --report = st)" = steps ] || fail "the steps are not completed"
[ "$(completions --document=o.pdf --with = forces,w)" = forces,why ] || fail "the second section of a document is not completed"
[ "$(completions --document=o.pdf --with = c)" = checks ] || fail "the checks of a document are not completed"
[ "$(cd "$sources" && completions examples/triang)" = examples/triangle.trs ] || fail "files are not completed"
echo "passed"
