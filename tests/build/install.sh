# Installs the build into an empty directory and builds the example clients with the installed files alone: once with
# the CMake package and once with the commands of README.md. The programs must print what is expected.
# usage: install.sh CMAKE BUILD_DIRECTORY C_COMPILER CXX_COMPILER LIB
. tests/build/common.sh
cmake=$1 build=$2 cc=$3 cxx=$4 prefix=$work/prefix lib=$work/prefix/$5

"$cmake" --install "$build" --prefix "$prefix" >/dev/null
failing="The project in examples/, which finds the installed package with find_package(wexcorin), does not build"
logged "$failing" "$cmake" -S examples -B "$work" -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx"
logged "$failing" "$cmake" --build "$work"
set -- "$work/client_c" "$work/client_cpp" "$work/client_classes"

# The commands of README.md, with the folders of this test in place of those for people.
awk '/^## / { section = /How to link it/ } /^\140\140\140/ { code = /sh$/; next } section && code' README.md |
  sed -e "s,PREFIX/lib,$lib,g" -e "s,PREFIX,$prefix,g" -e "s,build/release,$build,g" -e "s,-FEbuild,-FE$work/pascal," \
    -e "s,-o client,-o $work/readme," -e "s,\./client,$work/readme," >"$work/recipes"
mkdir "$work/pascal"
command -v pkg-config >/dev/null || sed -i -e '/^cc /d' -e '/^c++ /d' -e '/readme_plain /d' "$work/recipes"
command -v fpc >/dev/null || sed -i '/^fpc/d' "$work/recipes"
logged "A command in README.md, section \"How to link it\", fails" sh -ex "$work/recipes"
for client in "$work/readme" "$work/readme_classes" "$work/pascal/client"; do [ ! -e "$client" ] || set -- "$@" "$client"; done
sh tests/build/clients.sh "$@"
