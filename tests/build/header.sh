# Compiles each public header alone, in every language that clients write, with all warnings as errors.
# usage: header.sh INCLUDE_DIRECTORY C_COMPILER CXX_COMPILER
set -eu
include=$1 cc=$2 cxx=$3

# Advice on classes, which clients may have switched on; only g++ knows it.
classes=
if "$cxx" --version | grep -q 'Free Software Foundation'; then classes=-Weffc++; fi

status=0
# compiles HEADER COMPILER LANGUAGE STANDARD [WARNING]
compiles() {
  # Twice, so that a missing include guard shows.
  if printf '#include <wexcorin/%s>\n#include <wexcorin/%s>\n' "$1" "$1" |
    "$2" -x "$3" -std="$4" -fsyntax-only -I "$include" \
      -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wundef ${5:+"$5"} -Werror -; then
    echo "$1 compiles alone as $4"
  else
    echo "wexcorin/$1 does not compile alone as $4: mend what the compiler says above."
    status=1
  fi
}

compiles wexcorin.h "$cc" c c99
compiles wexcorin.h "$cc" c c11
for standard in c++17 c++20; do
  for header in wexcorin.h range.hpp wexcorin.hpp; do compiles "$header" "$cxx" c++ "$standard" "$classes"; done
done
exit "$status"
