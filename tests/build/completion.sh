# Drives the completion of one shell with command lines and compares what it offers with what is expected. The
# commands, options and forms that are expected come from the tool's own help.
# usage: completion.sh SHELL COMPLETION_FILE TOOL; run in the folder above examples/. Without the shell
# the test is skipped (exit code 77).
set -eu
export LC_ALL=C
shell=$1 completion=$2 tool=$3
here=$(dirname "$0")
# shellcheck source=tests/build/toolhelp.sh
. "$here/toolhelp.sh"

if ! command -v "$shell" >/dev/null; then
  echo "$shell is not installed: its completion stays untried"
  exit 77
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# expect LINE WORD...: the words in any order
expect() {
  echo "$1" >>"$work/lines"
  shift
  # shellcheck disable=SC2048,SC2086  # words
  printf '%s\n' $* | sort | paste -s -d ' ' >>"$work/expected"
}

# what the tool says of itself
expect "wexcorin " "$(commands)"
expect "wexcorin -" "$(flags "")"
for command in $(commands); do
  expect "wexcorin $command -" "$(flags "$command")"
done
expect "wexcorin doc " "$(forms)"

# places on the line
expect "wexcorin ch" check
expect "wexcorin check " FILES
expect "wexcorin show examples/solver.def --changed " FILES
expect "wexcorin write --output " FILES
expect "wexcorin write -o settings.opt " FILES
expect "wexcorin doc pascal " FILES
expect "wexcorin doc -o - pascal " FILES
expect "wexcorin help " FILES
expect "wexcorin doc pa" pascal page

# names of the definition
expect "wexcorin help examples/first.def " Help maxit tol start
expect "wexcorin help examples/first.def ma" maxit
expect "wexcorin help examples/missing.def " ""
expect "wexcorin show examples/first.def --set st" "start="
expect "wexcorin show --set maxit=3 examples/first.def --set tol" "tol="
expect "wexcorin show examples/first.def --set maxit=" ""
expect "wexcorin show examples/first.def --set maxit=1" ""

if ! "$shell" "$here/completion/complete.$shell" "$completion" "$tool" <"$work/lines" >"$work/words"; then
  cat "$work/words"
  echo "$completion fails in $shell, see above."
  exit 1
fi
paste -d '>' "$work/lines" "$work/expected" >"$work/wanted"
paste -d '>' "$work/lines" "$work/words" >"$work/offered"
if ! diff -u "$work/wanted" "$work/offered"; then
  echo "$completion does not offer what is expected (lines with -), see above; behind > stand the words."
  exit 1
fi
echo "$(wc -l <"$work/lines") command lines completed by $shell"
