# What the scripts of tests share: they run in the repository's root, have a folder "$work" of their own, note failures
# with `fail` and end with `finish`; a test that cannot run ends with exit code 77.
# shellcheck shell=sh disable=SC2034,SC2154  # variables are those of the scripts
set -eu
export LC_ALL=C
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() { echo "$*" | tee -a "$work/failures"; }
finish() {
  [ ! -e "$work/failures" ] || exit 1
  echo "$*"
}
# needs PROGRAM WHAT: what stays untried without the program
needs() {
  command -v "$1" >/dev/null || {
    echo "$1 is not installed: $2"
    exit 77
  }
}
# logged WHAT COMMAND...: shows what the command prints only when it fails
logged() {
  what=$1
  shift
  "$@" >"$work/log" 2>&1 || {
    cat "$work/log"
    echo "$what, see above."
    exit 1
  }
}

# ---- what the help of "$tool" says about its command line, one a line

commands() { "$tool" --help | sed -n '/^Commands:/,/^$/s/^  \([a-z][a-z]*\) .*/\1/p'; }
# flags COMMAND: the options of a command, or of the tool where it is empty
flags() {
  # shellcheck disable=SC2086  # no word where there is no command
  "$tool" $1 --help | sed -n '/^Options:/,/^$/s/^  \(-[^ ]*\) .*/\1/p' | tr ',' '\n'
}
# the forms of doc have an explanation in brackets
forms() { "$tool" doc --help | sed -n '/^  FORM/,/^  DEF/p' | grep -o '[a-z][a-z]* (' | tr -d ' ('; }
