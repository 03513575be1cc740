#!/usr/bin/env bash
# A warning stops those who can mend it and nobody else; it is given to all:
#   WarningsTest.sh SOURCE_DIRECTORY
set -euo pipefail
source=$1
room=$(mktemp -d)
trap 'rm -rf "$room"' EXIT

# commands_of PRESET: how the preset would have the sources compiled, without what takes long to configure.
commands_of() {
  (cd "$source" && cmake --preset "$1" -B "$room/$1" -DORVANE_WINDOWS=OFF -DBUILD_TESTING=OFF \
    -DORVANE_BENCHMARKS=OFF -DCMAKE_CXX_COMPILER=c++ >"$room/log" 2>&1) || { cat "$room/log" >&2; exit 1; }
  grep -o '"command": .*' "$room/$1/compile_commands.json"
}

for preset in release develop sanitize fuzz; do
  commands=$(commands_of "$preset")
  grep -q -e '-Wall' <<<"$commands" || { echo "$preset compiles without warnings" >&2; exit 1; }
  grep -q -e '-Werror' <<<"$commands" && stops=yes || stops=no
  [ "$preset" = release ] && expected=no || expected=yes
  [ $stops = $expected ] || { echo "$preset: does a warning stop it? $stops, not $expected" >&2; exit 1; }
done
