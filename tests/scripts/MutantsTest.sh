#!/usr/bin/env bash
# scripts/mutants: its list is not stale, and it tells a survivor from a caught one. The second is tried on a small
# project whose cmake "builds" a test program that looks for words in the source:
#   MutantsTest.sh SOURCE_DIRECTORY
set -euo pipefail
fail() { echo "$1" >&2; exit 1; }

"$1/scripts/mutants" --list >/dev/null || fail "changes of scripts/mutants.list are not found any more"

room=$(mktemp -d)
trap 'rm -rf "$room"' EXIT
mkdir -p "$room/scripts" "$room/bin" "$room/src/text" "$room/tests/text"
cp "$1/scripts/mutants" "$room/scripts/"
printf 'bool IsLess(int a,\n            int b) { return a < b; }\n// nothing\n' >"$room/src/text/Less.cpp"
printf 'TEST(Less, OneIsLessThanTwo) {}\n' >"$room/tests/text/LessTest.cpp"
cat >"$room/bin/cmake" <<'END'
#!/usr/bin/env bash
program=$PWD/build/release/tests/orvane_logic_tests source=$PWD/src/text/Less.cpp
mkdir -p "$(dirname "$program")"
grep -q 'no C++' "$source" && exit 1
cat >"$program" <<TEST
#!/usr/bin/env bash
echo "\$*" >>"$ROOM/filters"
! grep -q forever "$source" || exec sleep 60
grep -q 'a < b' "$source"
TEST
chmod +x "$program"
END
chmod +x "$room/bin/cmake"
export ROOM=$room PATH=$room/bin:$PATH MUTANT_SECONDS=1
git -C "$room" init --quiet

# change TEXT REPLACEMENT: one more change of the list.
change() { printf '\n%s\n- %s\n+ %s\n' "From $1 to $2" "$1" "$2" >>"$room/scripts/mutants.list"; }
# expect STATUS WHAT ARGUMENTS...: how the script ends, and a part of what it says.
expect() {
  local status=0 said
  said=$("$room/scripts/mutants" "${@:3}" 2>&1) || status=$?
  [ $status = "$1" ] || fail "mutants ${*:3} ended with $status, not $1: $said"
  [[ $said == *"$2"* ]] || fail "mutants ${*:3} does not say \"$2\": $said"
}

echo '[text]' >"$room/scripts/mutants.list"
change 'IsLess(int a, int b)' 'IsLess(int a, int c)'
change 'a < b' 'a > b'
change '// nothing' 'forever'
expect 1 'survived' 1
expect 0 'text: 2 caught' 2-3
expect 1 'text: 2 caught, 1 survived' text
expect 1 'text: 2 caught, 1 survived' -j 2
expect 2 '' canvas
grep -q 'Less\.\*' "$room/filters" || fail "the tests of the room are not chosen"
[ "$(git -C "$room" status --porcelain src | wc -l)" = 1 ] && grep -q 'a < b' "$room/src/text/Less.cpp" ||
  fail "the sources are not as they were"
grep -q 'a < b' "$room/build/mutants/1/src/text/Less.cpp" || fail "the copy is not as it was"

change 'nothing' 'no C++'
expect 2 'does not compile' 4
change 'what is not there' 'anything'
expect 2 'stale' 5
change 'int' 'long'
expect 2 'stands 2 times' --list
