# Runs the example clients, in C, C++ and Pascal, on the same files: each has to print the same settings and
# messages, those that are expected.
# usage: clients.sh LIBRARY_DIRECTORY CLIENT...; run in the repository's root
# The clients are programs, but for the one in Pascal: it is compiled here, unless LIBRARY_DIRECTORY is empty.
set -eu
library=$1
shift

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

skipped=
if [ -n "$library" ]; then
  if command -v fpc >/dev/null; then
    sh tests/pascal/compile.sh "$library" examples/client.pas "$work"
    mv "$work/client" "$work/client_pas"
    set -- "$@" "$work/client_pas"
  else
    skipped="fpc is not installed: the Pascal client stays untried, the others print what they should"
  fi
fi

# prints OPTION_FILE EXPECTED STATUS CLIENT...
prints() {
  file=$1 expected=$2 wanted=$3
  shift 3
  for client in "$@"; do
    status=0
    "$client" examples/solver.def "$file" >"$work/printed" || status=$?
    if ! diff -u "$expected" "$work/printed"; then
      echo "$client prints something else for $file than $expected holds (lines with - are expected,"
      echo "lines with + were printed). If the new output is right, put it into that file."
      exit 1
    fi
    if [ "$status" -ne "$wanted" ]; then
      echo "$client ended with exit code $status for $file, $wanted is right."
      exit 1
    fi
    echo "${client##*/} $file: as expected"
  done
}
prints examples/solver.opt examples/client.expected 0 "$@"
prints examples/solver_mistakes.opt examples/client_mistakes.expected 1 "$@"

if [ -n "$skipped" ]; then
  echo "$skipped"
  exit 77
fi
