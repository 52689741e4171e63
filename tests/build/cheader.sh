# Compiles the C header of a definition as C and as C++, and lets the compiler compare an enumerator of each kind with
# what the tool prints.
# usage: cheader.sh TOOL DEFINITION C_COMPILER CXX_COMPILER
set -eu
tool=$1 definition=$2 cc=$3 cxx=$4

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$tool" doc c "$definition" -o "$work/options.h"
number=$("$tool" show "$definition" | sed -n 's/^ *\([0-9]*\)  profile .*/\1/p')
{
  echo '#include <assert.h>'
  echo '#include "options.h"'
  echo '#include "options.h"'
  echo "static_assert(solver_nr_profile == $number && solver_ref_profile == 102, \"numbers of an option\");"
  echo 'static_assert(solver_value_profile_10 == 10, "number of a value");'
  echo 'static_assert(solver_value_method_dual == 3, "item number of a word");'
  echo 'static_assert(solver_nr_dot_prior > 0, "a dot option");'
  echo 'int main(void) { return 0; }'
} >"$work/client.c"

# compiles COMPILER LANGUAGE STANDARD
compiles() {
  if ! "$1" -x "$2" "-std=$3" -Wall -Wextra -Wpedantic -Werror -fsyntax-only "$work/client.c"; then
    echo "What \"wexcorin doc c\" writes does not compile as $3, see above."
    exit 1
  fi
}
compiles "$cc" c c11
compiles "$cxx" c++ c++20
