# Fails unless every function of the export list is called by one of the fuzz targets' sources.
#   reached.sh EXPORTS SOURCE...
set -eu
exports=$1
shift
missing=$(sed -n 's/^\(c\{0,1\}opt\)\{0,1\}\([a-z].*\)/\1\2 \2/p' "$exports" | while read -r name short; do
  grep -qwE "$name|BOTH\($short" "$@" || echo "$name"
done)
[ -z "$missing" ] || { printf 'no fuzz target calls:\n%s\n' "$missing"; exit 1; }
