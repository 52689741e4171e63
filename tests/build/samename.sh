# What docs/client-guide.md says about programs with two functions xfree, tried with Debian's libreadline: what goes
# wrong, what the C++ header says to it, and that each of the ways that the page shows works.
# usage: samename.sh LIBRARY_DIRECTORY C_COMPILER CXX_COMPILER
. tests/build/common.sh
library=$1 cc=$2 cxx=$3 from=tests/build/samename guide=docs/client-guide.md

[ -e /usr/include/readline/readline.h ] || {
  echo "libreadline-dev is not installed: no library that has a function xfree, too"
  exit 77
}
printf 'first\nsecond\n' >"$work/lines"
sed -n '/own\.c:/,/^   }$/s/^   //p' "$guide" >"$work/own.c"
grep 'client = dlopen(' "$guide" >"$work/scope"
grep 'client = dlmopen(' "$guide" >"$work/namespace"
echo 'void* client = dlopen("./solverlink.so", RTLD_NOW | RTLD_LOCAL);' >"$work/local"

# program NAME ARGUMENT...: a program in C with readline; solverlink.so is linked with wexcorin only
program() {
  name=$1
  shift
  "$cc" -D_GNU_SOURCE -I include -L "$library" "-Wl,-rpath,$library" -o "$work/$name" "$from/program.c" "$@" ||
    fail "$name is not built, see above"
}
header() { "$cxx" -std=c++17 -fPIC -I include "$@" -L "$library" "-Wl,-rpath,$library"; }
# ends NAME PATTERN: what the program prints and its exit code
ends() {
  code=0
  printed=$(sh -c 'cd "$0" && "./$1" lines' "$work" "$1" 2>&1) || code=$?
  echo "$printed exit $code" | tr '\n' ' ' | grep -qE "$2" ||
    fail "$1: $2 is right, this was seen: $printed exit $code"
}

program aborts -lreadline -lwexcorin
program crashes -lwexcorin -lreadline
program own -DOWN "$work/own.c" -lreadline -lwexcorin
program alone -DOWN "$work/own.c" -lreadline  # own.c loads the library
header -shared "$from/solverlink.cpp" -lwexcorin -o "$work/solverlink.so"
for load in local scope namespace; do program "$load" "-DLOAD=\"$work/$load\"" -lreadline; done

ends aborts 'exit 134'
ends crashes 'exit 139'
notice='^wexcorin: The program got xfree of [^ ]*/libreadline\.so\.8 in place of .*/libwexcorin\.so\.2\. .*exit 1 '
ends local "$notice"
for works in own scope namespace alone; do ends "$works" '^both work exit 0'; done

# The header in a program that is not position-independent, and in one that has an xfree itself.
echo 'extern "C" int solve(); int main() { return solve(); }' >"$work/main.cpp"
echo 'extern "C" void xfree(void*) {}' >"$work/xfree.cpp"
header -fno-pie -no-pie -Wl,--no-as-needed "$work/main.cpp" "$from/solverlink.cpp" -lreadline -lwexcorin \
  -o "$work/fixed"
header -c "$work/xfree.cpp" -o "$work/xfree.o"
header "$work/main.cpp" "$from/solverlink.cpp" "$work/xfree.o" -lwexcorin -o "$work/itself"
ends fixed "$notice"
ends itself 'got xfree of \./itself in place of .*exit 1 '
finish "the ways of docs/client-guide.md work, the others do not"
