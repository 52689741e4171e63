# Writes the Pascal include file of the example's options and runs a program that uses it.
# usage: keys.sh LIBRARY_DIRECTORY TOOL; run in the repository's root
set -eu
library=$1 tool=$2
here=$(dirname "$0")

if ! command -v fpc >/dev/null; then
  echo "fpc is not installed: the Pascal include file stays untried"
  exit 77
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Without the dot options and their lines: Pascal takes no name with a dot in it.
awk '/^[^ ]/ { plain = !/^\./ } plain' examples/solver.def >"$work/solver.def"
"$tool" doc pascal "$work/solver.def" -o "$work/solver.inc"
sh "$here/compile.sh" "$library" "$here/keys.pas" "$work"
"$work/keys" "$work/solver.def"
