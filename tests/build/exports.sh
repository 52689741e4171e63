# Compares the dynamic symbol table of the shared library with the list of exported names.
# usage: exports.sh LIBRARY LIST NM
set -eu
export LC_ALL=C
library=$1 list=$2 nm=$3

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Everything that the library defines for others, whatever its kind: functions, data, weak template instances.
"$nm" --dynamic --defined-only --format=posix "$library" | cut -d ' ' -f 1 | sort >"$work/exported"
sort "$list" >"$work/listed"

comm -23 "$work/listed" "$work/exported" >"$work/missing"
comm -13 "$work/listed" "$work/exported" >"$work/surplus"

status=0
if [ ! -s "$work/exported" ]; then
  echo "$library exports nothing at all."
  status=1
fi
if [ -s "$work/missing" ]; then
  echo "Listed in $list, but not exported by the library:"
  sed 's/^/  /' "$work/missing"
  echo "Define each in api/ with the declaration of wexcorin.h (which makes it visible), or take it off the list."
  status=1
fi
if [ -s "$work/surplus" ]; then
  echo "Exported by the library, but not listed in $list:"
  sed 's/^/  /' "$work/surplus"
  echo "Add each to the list if clients are to call it; if not, see why the version script let it through."
  status=1
fi
if grep -n '[^a-z0-9]' "$list"; then
  echo "Names in $list are lower case, one a line, without blanks: mend the lines above."
  status=1
fi
[ "$status" -ne 0 ] || echo "$(wc -l <"$work/exported") names, as listed"
exit "$status"
