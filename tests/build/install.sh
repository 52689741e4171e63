# Installs the build into an empty directory, compares the files there with the list of what is installed, and
# builds the example clients with what lies there alone: once with the CMake package and once with pkg-config.
# The programs must print what is expected of them.
# usage: install.sh CMAKE BUILD_DIRECTORY C_COMPILER CXX_COMPILER LIB ZSH VERSION; run in the repository's
# root
set -eu
cmake=$1 build=$2 cc=$3 cxx=$4 lib=$5 zsh=$6 version=$7 examples=examples
# shellcheck source=tests/build/listing.sh
. tests/build/listing.sh
outside=$(cd "$(dirname "$0")/outside" && pwd)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

"$cmake" --install "$build" --prefix "$prefix" >/dev/null
expected_files "" "$lib" "$zsh" "$version" >"$work/expected"
find "$prefix" -type f -printf '%P\n' -o -type l -printf '%P -> %l\n' | LC_ALL=C sort >"$work/found"
compare_files "$work/expected" "$work/found" installed

# prints_expected PROGRAM HOW
prints_expected() {
  if ! "$1" "$examples/solver.def" "$examples/solver.opt" >"$work/printed" ||
    ! diff -u "$examples/client.expected" "$work/printed"; then
    echo "A client built with $2 against the installed library does not print what the examples say, see above."
    exit 1
  fi
  echo "built with $2: $(basename "$1")"
}

if ! "$cmake" -S "$outside" -B "$work/build" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_C_COMPILER="$cc" \
  -DCMAKE_CXX_COMPILER="$cxx" -DEXAMPLES="$PWD/$examples" >"$work/log" 2>&1 ||
  ! "$cmake" --build "$work/build" >>"$work/log" 2>&1; then
  cat "$work/log"
  echo "A project that finds the installed package with find_package(wexcorin) does not build, see above."
  exit 1
fi
prints_expected "$work/build/client_c" CMake
prints_expected "$work/build/client_cpp" CMake

if ! command -v pkg-config >/dev/null; then
  echo "pkg-config is not installed: wexcorin.pc stays untried"
  exit 0
fi
flags=$(PKG_CONFIG_PATH=$prefix/$lib/pkgconfig pkg-config --cflags --libs wexcorin)
# shellcheck disable=SC2086  # flags are words
"$cc" -std=c99 "$examples/client.c" $flags "-Wl,-rpath,$prefix/$lib" -o "$work/plain_c"
# shellcheck disable=SC2086
"$cxx" -std=c++17 "$examples/client.cpp" $flags "-Wl,-rpath,$prefix/$lib" -o "$work/plain_cpp"
prints_expected "$work/plain_c" pkg-config
prints_expected "$work/plain_cpp" pkg-config
