#!/usr/bin/env bash
# Who can include whom, tried with the preprocessor and the include path of each room's library:
#   IncludeTest.sh COMPILER ROOM=FOLDER:FOLDER:... ...
# A file of the room finds the headers of what the room uses, and no other room's.
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
  [naming]="text platform document"
  [editing]="text platform document canvas"
  [reports]="text platform paper document canvas analysis explanation"
  [practice]="text platform paper document canvas analysis explanation reports"
  [app]="text platform paper document canvas analysis explanation naming reports practice")

[ ${#path[@]} -eq ${#header[@]} ] || { echo "the rooms are not those of the table: ${!path[*]}" >&2; exit 1; }
wrong=0
for room in "${!header[@]}"; do
  folders=()
  while read -r -d : folder; do folders+=(-I "$folder"); done <<<"${path[$room]}:"
  lines=()
  for other in "${!header[@]}" Qt; do
    if [ "$other" = "$room" ] || [[ " ${below[$room]} " == *" $other "* ]]; then
      lines+=("#include \"${header[$other]}\"")
    else
      [ "$other" = Qt ] && name='<QString>' || name="\"${header[$other]}\""
      lines+=("#if __has_include($name)" "#error $room reaches $name" '#endif')
    fi
  done
  # What stands in the headers is compiled with the room; here they, and theirs, need only be found.
  printf '%s\n' "${lines[@]}" | "$compiler" -std=c++20 -E -o /dev/null "${folders[@]}" -x c++ - || wrong=1
done
exit $wrong
