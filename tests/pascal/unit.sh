# Compares pascal/wexcorin.pas with the library: every short-string function and nothing else, each declared as
# the library's own signature says, and the constants. What is compared is read from the unit's text.
# usage: unit.sh LIBRARY_DIRECTORY; run in the repository's root
set -eu
export LC_ALL=C
library=$1
here=$(dirname "$0")

if ! command -v fpc >/dev/null; then
  echo "fpc is not installed: the Pascal unit stays untried"
  exit 77
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The unit's functions and constants, one a line, as unit.pas checks them; see there.
tr '\n' ' ' <pascal/wexcorin.pas | sed 's/{[^}]*}//g' | tr -s ' ' |
  grep -oE "(function|procedure) [^(;]*(\([^)]*\))?[^(;]*;[a-z ;]* external [^;]*|opt[A-Za-z0-9]+ = [0-9]+" \
    >"$work/declarations"
awk -v "symbols=$work/symbols" -f "$here/declarations.awk" "$work/declarations" >"$work/declarations.inc"

sort "$work/symbols" >"$work/declared"
grep -v '^c' api/exports.txt | sort >"$work/exported"
if ! diff -U0 "$work/exported" "$work/declared"; then
  echo "pascal/wexcorin.pas: declare there the functions marked - and take out those marked +."
  exit 1
fi

sh "$here/compile.sh" "$library" "$here/unit.pas" "$work"
"$work/unit"
echo "$(wc -l <"$work/declared") functions, declared as the library has them"
