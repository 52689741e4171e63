# Compiles a Pascal program with the library's unit; warnings are errors. The path of the library is stored in the
# program.
# usage: compile.sh LIBRARY_DIRECTORY SOURCE OUTPUT_DIRECTORY; run in the repository's root
set -eu
library=$1 source=$2 output=$3

fpc -v0ewn -Sewn -Fupascal "-Fi$output" "-FE$output" "-Fl$library" -k-rpath "-k$library" "$source" \
  >"$output/log" 2>&1 || {
  cat "$output/log"
  echo "$source does not compile, see above."
  exit 1
}
