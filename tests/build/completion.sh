# Gives command lines to the completion of one shell and compares what it offers with what is expected. The expected
# commands, flags and forms are taken from the tool's own help.
# usage: completion.sh SHELL COMPLETION_FILE TOOL
. tests/build/common.sh
shell=$1 completion=$2 tool=$3
export HOME="$work" # fish keeps files there
needs "$shell" "its completion is not tested"

# expect LINE WORD...: the words in any order
expect() {
  line=$1
  shift
  # shellcheck disable=SC2048,SC2086  # words
  echo "$line>$(printf '%s\n' $* | sort | paste -s -d ' ')" >>"$work/expected"
}

# commands, flags and forms
expect "wexcorin " "$(commands)"
expect "wexcorin -" "$(flags "")"
for command in $(commands); do
  expect "wexcorin $command -" "$(flags "$command")"
done
expect "wexcorin doc " "$(forms)"
expect "wexcorin check --allow " "$(rules)"

# files or names, depending on the place in the line
while read -r row; do
  # shellcheck disable=SC2086  # words
  expect "${row%%>*}" ${row#*>}
done <<'END'
wexcorin ch>check
wexcorin check >FILES
wexcorin show examples/solver.def --changed >FILES
wexcorin write --output >FILES
wexcorin write -o settings.opt >FILES
wexcorin doc pascal >FILES
wexcorin doc -o - pascal >FILES
wexcorin help >FILES
wexcorin doc pa>pascal page
wexcorin doc --title All --release 1 pa>pascal page
wexcorin help examples/first.def >Help maxit limit tol start general
wexcorin help examples/types.def .>.shelf
wexcorin help examples/first.def ma>maxit
wexcorin help examples/missing.def >
wexcorin show examples/first.def --set st>start=
wexcorin get >
wexcorin show --color a>always auto
wexcorin show --color always >FILES
wexcorin show --columns na>name
wexcorin get maxit >FILES
wexcorin explain >
wexcorin explain maxit >FILES
wexcorin explain maxit examples/first.def --set st>start=
wexcorin check --allow set>set-again
wexcorin check --allow set-again >FILES
wexcorin check --format s>sarif
wexcorin check --definition >FILES
wexcorin check main.opt --definition examples/first.def --set st>start=
wexcorin check main.opt --definition=examples/first.def --set st>start=
wexcorin show --color=al>always
wexcorin template examples/types.def --group=>firing glazing
wexcorin get maxit examples/first.def --set st>start=
wexcorin find >FILES
wexcorin diff >FILES
wexcorin diff --fail-on b>breaking
wexcorin diff --definition examples/first.def >FILES
wexcorin migrate --syntax >assignments wexcorin
wexcorin migrate --from old.def --to >FILES
wexcorin template >FILES
wexcorin template --group firing >FILES
wexcorin template examples/types.def -o >FILES
wexcorin find examples/first.def >
wexcorin help examples/solver.def sy>symmetry symbols
wexcorin template examples/types.def --group >firing glazing
wexcorin template examples/solver.def --group s>simplex search shorthands symbols
wexcorin template --group >
wexcorin show --set maxit=3 examples/first.def --set tol>tol=
wexcorin show examples/first.def --set maxit=>
wexcorin show examples/first.def --set lim>limit=
wexcorin show examples/first.def --set start=>cold warm
wexcorin show examples/first.def --set start=w>warm
wexcorin show examples/solver.def --set algorithm=in>interior
wexcorin show examples/solver.def --set log_cuts=>no yes
wexcorin show examples/solver.def --set flow.p>flow.prior=
wexcorin show examples/solver.def --set flow.up_first=y>yes
wexcorin show examples/first.def --set maxit=1>
END
cut -d '>' -f 1 "$work/expected" >"$work/lines"

"$shell" "tests/build/completion/complete.$shell" "$completion" "$tool" <"$work/lines" >"$work/words" ||
  fail "$completion fails in $shell: $(cat "$work/words")"
paste -d '>' "$work/lines" "$work/words" | diff -u "$work/expected" - ||
  fail "$completion does not offer what is expected (lines with -), see above. The words follow the >."
finish "$(wc -l <"$work/lines") command lines completed by $shell"
