# Fails unless the sources of the fuzz targets call every exported function.
#   reached.sh EXPORTS SOURCE...
set -eu
exports=$1
shift
missing=$(sed -n 's/^\(c\{0,1\}opt\)\{0,1\}\([a-z].*\)/\1\2 \2/p' "$exports" | while read -r name short; do
  grep -qwE "$name|BOTH\($short" "$@" || echo "$name"
done)
[ -z "$missing" ] || { printf 'no fuzz target calls:\n%s\n' "$missing"; exit 1; }
