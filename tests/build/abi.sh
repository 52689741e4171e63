# Compares the binary interface (functions with their types, layouts, numbers of constants) with the list of what
# clients were promised.
# usage: abi.sh PROGRAM HEADER LIST; PROGRAM prints the functions and layouts
set -eu
export LC_ALL=C
program=$1 header=$2 list=$3

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

{
  "$program"
  sed -n 's/^  \(opt[A-Za-z0-9]*\) = \(-\{0,1\}[0-9][0-9]*\),\{0,1\}\( .*\)\{0,1\}$/\1 = \2/p' "$header"
  sed -n 's/^#define \(WEXCORIN_[A-Z_]*\) \([0-9][0-9]*\)$/\1 = \2/p' "$header"
} >"$work/found"

if diff "$list" "$work/found" >"$work/differences"; then
  exit 0
fi
cat "$work/differences"
if grep -q '^<' "$work/differences"; then
  echo "What stands behind < was promised to clients and has changed or is gone: programs that are installed would call"
  echo "it wrongly. Keep it as it is and add a function beside it. If it has to go, raise the project's first version"
  echo "number and WEXCORIN_INTERFACE_VERSION (the soname follows), say so in CHANGELOG.md, then take over the new list."
fi
echo "What stands behind > is new: put it into api/abi.txt. docs/compatibility.md says what a place there means."
exit 1
