#!/usr/bin/env bash
# scripts/configure, with a cmake that only writes down how it was called:
#   ConfigureTest.sh SOURCE_DIRECTORY
set -euo pipefail
room=$(mktemp -d)
trap 'rm -rf "$room"' EXIT
mkdir -p "$room/scripts" "$room/bin"
cp "$1/scripts/configure" "$room/scripts/"
printf '#!/bin/sh\necho "$*" >>"%s/calls"\nmkdir -p "%s/build/release"\n: >"%s/build/release/build.ninja"\n' \
  "$room" "$room" "$room" >"$room/bin/cmake"
chmod +x "$room/bin/cmake"
export PATH=$room/bin:$PATH

# expect CI WHAT CALLS...: what cmake is called with when CI has this value.
expect() {
  local ci=$1 what=$2 calls
  shift 2
  rm -f "$room/calls"
  CI=$ci "$room/scripts/configure"
  calls=$(cat "$room/calls" 2>/dev/null || true)
  [ "$calls" = "$*" ] || { echo "$what: cmake was called with \"$calls\", not \"$*\"" >&2; exit 1; }
}

expect "" "a user's first time" --preset release
expect "" "a user's second time"
expect true "continuous integration in a directory that a user has configured" --preset develop -DORVANE_JOIN_SOURCES=ON
rm -r "$room/build"
expect true "continuous integration's first time" --preset develop -DORVANE_JOIN_SOURCES=ON
expect false "not continuous integration"
