#!/usr/bin/env bash
# Who can include whom, tried with the compiler and the include path of each room's library:
#   IncludeTest.sh COMPILER ROOM=FOLDER:FOLDER:... ...
# A file that includes what the room uses must compile; for one that would include anything else there is no such
# header.
set -euo pipefail
export LC_ALL=C
compiler=$1
shift

declare -A path
for room in "$@"; do path[${room%%=*}]=${room#*=}; done

# A small header of each room.
declare -A header=(
  [text]=text/Sentence.h [platform]=platform/Clock.h [paper]=paper/Page.h [document]=document/Table.h [canvas]=canvas/Polar.h
  [analysis]=analysis/FormatSigFigs.h [explanation]=explanation/Directions.h [naming]=naming/Naming.h
  [editing]=editing/PanelPlace.h [reports]=reports/GridFitting.h [practice]=practice/Marking.h [app]=app/ReportPlace.h)

# What stands below each room, as far as it uses it. What is not named is above it, beside it or not used by it.
declare -A below=(
  [text]=""
  [platform]="text"
  [paper]="platform"
  [document]="text platform"
  [canvas]="text platform document"
  [analysis]="text platform document"
  [explanation]="text platform document canvas analysis"
  [naming]="platform document"
  [editing]="text platform document canvas"
  [reports]="text platform paper document canvas analysis explanation"
  [practice]="text platform paper document canvas analysis explanation reports"
  [app]="text platform paper document canvas analysis explanation naming editing reports practice")

# compile ROOM LINE...: whether a file of the room with these lines compiles; in $said, what the compiler says.
compile() {
  local folders=() folder room=$1
  shift
  while read -r -d : folder; do folders+=(-I "$folder"); done <<<"${path[$room]}:"
  said=$(printf '%s\n' "$@" 'int main() {}' | "$compiler" -std=c++20 -fsyntax-only "${folders[@]}" -x c++ - 2>&1)
}

[ ${#path[@]} -eq ${#header[@]} ] || { echo "the rooms are not those of the table: ${!path[*]}" >&2; exit 1; }
wrong=0
for room in "${!header[@]}"; do
  reached=('#include <vector>')
  unreached=()
  for other in "${!header[@]}" Qt; do
    if [ "$other" = "$room" ] || [[ " ${below[$room]} " == *" $other "* ]]; then
      reached+=("#include \"${header[$other]}\"")
    else
      [ "$other" = Qt ] && name='<QString>' || name="\"${header[$other]}\""
      unreached+=("#if __has_include($name)" "#error $room reaches $name" '#endif')
    fi
  done
  compile "$room" "${unreached[@]}" || { echo "$said" >&2; wrong=1; }
  compile "$room" "${reached[@]}" || { echo "$room does not reach ${reached[*]}: $said" >&2; wrong=1; }
done
exit $wrong
