# Fails unless every function of the export list is called by one of the fuzz targets' sources.
#   reached.sh EXPORTS SOURCE...
set -eu
exports=$1
shift
missing=$(grep '^[a-z]' "$exports" | while read -r name; do
  grep -qw "$name" "$@" || echo "$name"
done)
[ -z "$missing" ] || { printf 'no fuzz target calls:\n%s\n' "$missing"; exit 1; }
