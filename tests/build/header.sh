# Compiles the public header alone, in every language that clients write, with all warnings as errors.
# usage: header.sh INCLUDE_DIRECTORY C_COMPILER CXX_COMPILER
set -eu
include=$1 cc=$2 cxx=$3

status=0
# compiles COMPILER LANGUAGE STANDARD
compiles() {
  # Twice, so that a missing include guard shows.
  if printf '#include <wexcorin/wexcorin.h>\n#include <wexcorin/wexcorin.h>\n' |
    "$1" -x "$2" -std="$3" -fsyntax-only -I "$include" \
      -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wundef -Werror -; then
    echo "$3: compiles alone"
  else
    echo "wexcorin/wexcorin.h does not compile alone as $3: mend what the compiler says above."
    status=1
  fi
}

compiles "$cc" c c99
compiles "$cc" c c11
compiles "$cxx" c++ c++17
compiles "$cxx" c++ c++20
exit "$status"
