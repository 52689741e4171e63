# Installs the build into an empty directory and builds the example clients with what lies there alone: once with
# the CMake package and once with pkg-config. The programs must print what is expected of them.
# usage: install.sh CMAKE BUILD_DIRECTORY C_COMPILER CXX_COMPILER EXAMPLES; run in the directory above EXAMPLES
set -eu
cmake=$1 build=$2 cc=$3 cxx=$4 examples=$5
outside=$(cd "$(dirname "$0")/outside" && pwd)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

"$cmake" --install "$build" --prefix "$prefix" >/dev/null
package=$(find "$prefix" -name wexcorin.pc)
if [ -z "$package" ]; then
  echo "No wexcorin.pc among what was installed; see cmake/package.cmake:"
  find "$prefix" ! -type d
  exit 1
fi

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
lib=$(dirname "$(dirname "$package")")
flags=$(PKG_CONFIG_PATH=$lib/pkgconfig pkg-config --cflags --libs wexcorin)
# shellcheck disable=SC2086  # flags are words
"$cc" -std=c99 "$examples/client.c" $flags "-Wl,-rpath,$lib" -o "$work/plain_c"
# shellcheck disable=SC2086
"$cxx" -std=c++17 "$examples/client.cpp" $flags "-Wl,-rpath,$lib" -o "$work/plain_cpp"
prints_expected "$work/plain_c" pkg-config
prints_expected "$work/plain_cpp" pkg-config
