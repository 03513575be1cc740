# Turns the text of "orvane --help" into a manual page, so that both always say the same.
# Its first line is the purpose, lines that begin with "orvane " are ways to call it, each with what it does after two
# blanks or on indented lines below; the rest is paragraphs. Variables: version, date.
function plain(text) {
  gsub(/\\/, "\\e", text)
  gsub(/-/, "\\-", text)
  sub(/^[.']/, "\\\\\\&&", text)
  return text
}
# Prints a text in lines of at most 78 characters.
function say(text,    words, count, i, line) {
  gsub(/\\/, "\\e", text)
  gsub(/--/, "\\-\\-", text)
  count = split(text, words, " ")
  line = words[1]
  sub(/^[.']/, "\\\\\\&&", line)
  for (i = 2; i <= count; ++i) {
    if (length(line) + length(words[i]) < 78) {
      line = line " " words[i]
    } else {
      print line
      line = words[i]
    }
  }
  if (count) print line
}
function flush_way() {
  if (way != "") {
    print ".TP\n.B " plain(way)
    say(what)
  }
  way = what = ""
}
NR == 1 {
  purpose = $0
  sub(/\.$/, "", purpose)
  sub(/^Orvane /, "", purpose)
  print ".TH ORVANE 1 \"" date "\" \"Orvane " version "\" \"User Commands\""
  print ".SH NAME\norvane \\- " purpose
  print ".SH SYNOPSIS\n.B orvane\n[\\fIFILE\\fR]\n.br\n.B orvane\n\\fIOPTION\\fR... \\fIFILE\\fR..."
  print ".SH DESCRIPTION\nOrvane " purpose ".\nWith one of the options below it works without a window."
  next
}
/^orvane / {
  flush_way()
  if (!ways++) print ".SH CALLS"
  at = match($0, /   */)
  way = at ? substr($0, 1, at - 1) : $0
  what = at ? substr($0, at + RLENGTH) : ""
  next
}
/^ / && way != "" {
  sub(/^ +/, "")
  what = what " " $0
  next
}
/^$/ {
  flush_way()
  if (ways) open = 1
  next
}
{
  flush_way()
  if (/^Exit status:/) {
    print ".SH EXIT STATUS"
    sub(/^Exit status: */, "")
    open = 0
  } else if (open) {
    print notes++ ? ".PP" : ".SH NOTES"
    open = 0
  }
  say($0)
}
END {
  flush_way()
  print ".SH FILES\n.TP\n.I *.trs\nTrusses, as text."
  print ".SH SEE ALSO\nThe help of the program, under the menu Help."
}
