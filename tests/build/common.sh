# Shared by the test scripts. They run in the repository's root, have a temporary folder "$work", report failures with
# `fail` and end with `finish`. A test that cannot run ends with exit code 77.
# shellcheck shell=sh disable=SC2034,SC2154  # the scripts set and use the variables
set -eu
export LC_ALL=C
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() { echo "$*" | tee -a "$work/failures"; }
finish() {
  [ ! -e "$work/failures" ] || exit 1
  echo "$*"
}
# needs PROGRAM WHAT: skips the test if the program is not installed; WHAT says what is then not tested
needs() {
  command -v "$1" >/dev/null || {
    echo "$1 is not installed: $2"
    exit 77
  }
}
# logged WHAT COMMAND...: runs the command and shows its output only when it fails
logged() {
  what=$1
  shift
  "$@" >"$work/log" 2>&1 || {
    cat "$work/log"
    echo "$what, see above."
    exit 1
  }
}

# ---- the command line of "$tool" as its help shows it, one item on each line

commands() { "$tool" --help | sed -n '/^Commands:/,/^$/s/^  \([a-z][a-z]*\) .*/\1/p'; }
# flags COMMAND: the flags of a command, or of the tool where it is empty
flags() {
  # shellcheck disable=SC2086  # an empty command is no argument
  "$tool" $1 --help | sed -n '/^Flags:/,/^$/s/^  \(-[^ ]*\) .*/\1/p' | tr ',' '\n'
}
rules() { "$tool" check --help | sed -n '/^Rules:/,/^$/s/^  \([a-z-]*\) .*/\1/p'; }
# the forms of doc have an explanation in brackets
forms() { "$tool" doc --help | sed -n '/^  FORM/,/^  DEF/p' | grep -o '[a-z][a-z]* (' | tr -d ' ('; }
