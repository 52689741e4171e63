# Runs a program and compares what it prints with a file.
# usage: output.sh EXPECTED PROGRAM [ARGUMENT]...
set -eu
expected=$1
shift

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

status=0
"$@" >"$work/output" || status=$?
if [ "$status" -ne 0 ]; then
  cat "$work/output"
  echo "$1 ended with exit code $status."
  exit 1
fi
if ! diff -u "$expected" "$work/output"; then
  echo "$1 prints something else than $expected holds (lines with - are expected, lines with + were printed)."
  echo "If the new output is right, put it into that file."
  exit 1
fi
