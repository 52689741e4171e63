# What the tool's own help says about its command line; read by other scripts, which set `tool`.
# shellcheck shell=sh disable=SC2154

# The commands, one a line.
commands() { "$tool" --help | sed -n '/^Commands:/,/^$/s/^  \([a-z][a-z]*\) .*/\1/p'; }

# flags COMMAND: the options of a command, or of the tool where it is empty, one a line.
flags() {
  # shellcheck disable=SC2086  # no word where there is no command
  "$tool" $1 --help | sed -n '/^Options:/,/^$/s/^  \(-[^ ]*\) .*/\1/p' | tr ',' '\n'
}

# The forms of doc, one a line: in the help each has an explanation in brackets.
forms() {
  "$tool" doc --help | sed -n '/^  FORM/,/^  DEF/p' | grep -o '[a-z][a-z]* (' | tr -d ' ('
}
