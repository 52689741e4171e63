# Installs the build into an empty directory and builds the example clients with the installed files alone: once with
# the CMake package and once with pkg-config. The programs must print what is expected.
# usage: install.sh CMAKE BUILD_DIRECTORY C_COMPILER CXX_COMPILER LIB
. tests/build/common.sh
cmake=$1 build=$2 cc=$3 cxx=$4 prefix=$work/prefix lib=$work/prefix/$5

"$cmake" --install "$build" --prefix "$prefix" >/dev/null
failing="The project in examples/, which finds the installed package with find_package(wexcorin), does not build"
logged "$failing" "$cmake" -S examples -B "$work" -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx"
logged "$failing" "$cmake" --build "$work"
set -- "$work/client_c" "$work/client_cpp"

if command -v pkg-config >/dev/null; then
  flags="$(PKG_CONFIG_PATH=$lib/pkgconfig pkg-config --cflags --libs wexcorin) -Wl,-rpath,$lib"
  # shellcheck disable=SC2086  # flags are words
  "$cc" -std=c99 examples/client.c $flags -o "$work/pkgconfig_c"
  # shellcheck disable=SC2086
  "$cxx" -std=c++17 examples/client.cpp $flags -o "$work/pkgconfig_cpp"
  set -- "$@" "$work/pkgconfig_c" "$work/pkgconfig_cpp"
fi
sh tests/build/clients.sh "$@"
