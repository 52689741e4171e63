# Installs the build into an empty directory, then builds and runs a C program with what lies there alone: the
# installed header and the installed shared library.
# usage: install.sh CMAKE BUILD_DIRECTORY C_COMPILER PROGRAM_SOURCE
set -eu
cmake=$1 build=$2 cc=$3 source=$4

prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

"$cmake" --install "$build" --prefix "$prefix" >/dev/null
library=$(find "$prefix" -name libwexcorin.so)
if [ -z "$library" ] || [ ! -e "$library" ]; then
  echo "No complete libwexcorin.so among what was installed; see the install rules in CMakeLists.txt:"
  find "$prefix" ! -type d
  exit 1
fi
lib=$(dirname "$library")

if ! "$cc" -std=c99 -I "$prefix/include" "$source" -L "$lib" -lwexcorin -o "$prefix/program"; then
  echo "No program can be built with the installed header and library: mend what the compiler says above."
  exit 1
fi
if ! LD_LIBRARY_PATH=$lib "$prefix/program" "$prefix/file.def"; then
  echo "A program built with the installed header and library fails when it is run, see above."
  exit 1
fi
