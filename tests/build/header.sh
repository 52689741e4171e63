# Compiles each public header alone, in every language that clients write, with all warnings as errors.
# usage: header.sh INCLUDE_DIRECTORY C_COMPILER CXX_COMPILER
set -eu
include=$1 cc=$2 cxx=$3

status=0
# compiles HEADER COMPILER LANGUAGE STANDARD
compiles() {
  # Twice, so that a missing include guard shows.
  if printf '#include <wexcorin/%s>\n#include <wexcorin/%s>\n' "$1" "$1" |
    "$2" -x "$3" -std="$4" -fsyntax-only -I "$include" \
      -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wundef -Werror -; then
    echo "$1 compiles alone as $4"
  else
    echo "wexcorin/$1 does not compile alone as $4: mend what the compiler says above."
    status=1
  fi
}

compiles wexcorin.h "$cc" c c99
compiles wexcorin.h "$cc" c c11
compiles wexcorin.h "$cxx" c++ c++17
compiles wexcorin.h "$cxx" c++ c++20
compiles wexcorin.hpp "$cxx" c++ c++17
compiles wexcorin.hpp "$cxx" c++ c++20
exit "$status"
