# Runs the example clients in C, C++ and Pascal on the same files. Each must print the expected settings and messages.
# usage: clients.sh [LIBRARY_DIRECTORY] CLIENT...
# CLIENT is a program. The client in Pascal is compiled here, with the library in the directory.
. tests/build/common.sh
library=''
if [ -d "$1" ]; then
  library=$1
  shift
fi

if [ -n "$library" ] && command -v fpc >/dev/null; then
  sh tests/pascal/compile.sh "$library" examples/client.pas "$work"
  set -- "$@" "$work/client"
fi
for client in "$@"; do
  for row in "0 examples/solver.opt examples/client" "1 examples/solver_mistakes.opt examples/client_mistakes"; do
    # shellcheck disable=SC2086  # words
    set -- $row
    status=0
    "$client" examples/solver.def "$2" >"$work/printed" || status=$?
    diff -u "$3.expected" "$work/printed" || fail "$client does not print for $2 what $3.expected" \
      "holds (lines with - are expected, lines with + were printed). If it is right, put it into that file."
    [ "$status" -eq "$1" ] || fail "$client ended with exit code $status for $2, $1 is right."
  done
done
finish "as expected"
[ -z "$library" ] || needs fpc "the Pascal client stays untried, the others print what they should"
