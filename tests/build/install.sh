# Installs the build into an empty directory, compares the files there with the list of what is installed, and
# builds the example clients with what lies there alone: once with the CMake package and once with pkg-config.
# The programs must print what is expected of them.
# usage: install.sh CMAKE BUILD_DIRECTORY C_COMPILER CXX_COMPILER LIB ZSH VERSION
. tests/build/common.sh
cmake=$1 build=$2 cc=$3 cxx=$4 lib=$5 zsh=$6 version=$7
prefix=$work/prefix

"$cmake" --install "$build" --prefix "$prefix" >/dev/null
find "$prefix" -type f -printf '%P\n' -o -type l -printf '%P -> %l\n' >"$work/found"
same_files "" installed

# print_expected FOLDER HOW: the clients there
print_expected() {
  for client in "$1/client_c" "$1/client_cpp"; do
    "$client" examples/solver.def examples/solver.opt | diff -u examples/client.expected - ||
      fail "$client, built with $2 and the installed library, does not print what the examples say, see above."
  done
}

failing="A project that finds the installed package with find_package(wexcorin) does not build"
logged "$failing" "$cmake" -S tests/build/outside -B "$work/build" -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" -DEXAMPLES="$PWD/examples"
logged "$failing" "$cmake" --build "$work/build"
print_expected "$work/build" CMake

if command -v pkg-config >/dev/null; then
  flags="$(PKG_CONFIG_PATH=$prefix/$lib/pkgconfig pkg-config --cflags --libs wexcorin) -Wl,-rpath,$prefix/$lib"
  # shellcheck disable=SC2086  # flags are words
  "$cc" -std=c99 examples/client.c $flags -o "$work/client_c"
  # shellcheck disable=SC2086
  "$cxx" -std=c++17 examples/client.cpp $flags -o "$work/client_cpp"
  print_expected "$work" pkg-config
fi
finish "installed as listed; clients built with it print what they should"
