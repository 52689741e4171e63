# Compiles each public header, and the header that `doc c` writes, in every language that clients use, with all
# warnings as errors. Each header is included twice. Of the header from `doc c`, one enumerator of each kind must have
# the number that the tool prints.
# usage: headers.sh C_COMPILER CXX_COMPILER [TOOL]
. tests/build/common.sh
cc=$1 cxx=$2 tool=${3-}

# Warnings about the style of classes, which clients may have switched on. Only g++ has them.
classes=
if "$cxx" --version | grep -q 'Free Software Foundation'; then classes=-Weffc++; fi

# compiles HEADER COMPILER LANGUAGE STANDARD [WARNING]; the lines after the #include are read from standard input
compiles() {
  { printf '#include <%s>\n' "$1" "$1" && cat; } |
    "$2" -x "$3" -std="$4" -fsyntax-only -I include -I "$work" \
      -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wundef ${5:+"$5"} -Werror - ||
    fail "$1 does not compile alone as $4, see the errors above."
}

compiles wexcorin/wexcorin.h "$cc" c c99 </dev/null
compiles wexcorin/wexcorin.h "$cc" c c11 </dev/null
for standard in c++17 c++20; do
  for header in include/wexcorin/*; do
    compiles "${header#include/}" "$cxx" c++ "$standard" "$classes" </dev/null
  done
done

if [ -n "$tool" ]; then
  "$tool" doc c examples/solver.def -o "$work/options.h"
  number=$("$tool" show examples/solver.def | sed -n 's/^ *\([0-9]*\)  profile .*/\1/p')
  echo "#include <assert.h>
    static_assert(solver_nr_profile == $number && solver_ref_profile == 102, \"numbers of an option\");
    static_assert(solver_value_profile_10 == 10 && solver_value_method_dual == 3, \"a value, an item number\");
    static_assert(solver_nr_dot_prior > 0, \"a dot option\");" >"$work/client"
  compiles options.h "$cc" c c11 <"$work/client"
  compiles options.h "$cxx" c++ c++20 <"$work/client"
fi
finish "every header compiles alone"
