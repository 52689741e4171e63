# The library as clients get it: names, types, what it needs, and the protections of a release build.
# usage: binary.sh LIBRARY NM ABI_PROGRAM [READELF [TOOL]]; with READELF the test also checks what the library needs,
# with TOOL also the protections
. tests/build/common.sh
library=$1 nm=$2 abi=$3 readelf=${4-} tool=${5-}

# All exported symbols of any kind: functions, data, weak template instances.
"$nm" --dynamic --defined-only --format=posix "$library" | cut -d ' ' -f 1 | sort >"$work/exported"
sort api/exports.txt | diff -U0 - "$work/exported" ||
  fail "Names marked - are not exported: define each in api/ as wexcorin.h declares it. Those marked + are not in" \
    "api/exports.txt: add each if clients are to call it; if not, see why the version script let it through."
sed -n 's/^WEXCORIN_API .*[ *]\(c\{0,1\}opt[a-z0-9]*\|c\{0,1\}x[a-z]*\)(.*/\1/p' include/wexcorin/wexcorin.h | sort |
  diff api/exports.txt - || fail "Names marked > are declared in wexcorin.h, but not listed in api/exports.txt."
! grep '[^a-z0-9]' api/exports.txt || fail "Names in api/exports.txt must be in lower case, one on each line, without blanks."

# Functions with their types, layouts, numbers of constants.
header=include/wexcorin/wexcorin.h
{
  "$abi"
  sed -n 's/^  \(opt[A-Za-z0-9]*\) = \(-\{0,1\}[0-9][0-9]*\),\{0,1\}\( .*\)\{0,1\}$/\1 = \2/p' "$header"
  sed -n 's/^#define \(WEXCORIN_[A-Z_]*\) \([0-9][0-9]*\)$/\1 = \2/p' "$header"
} | diff api/abi.txt - ||
  fail "Lines marked < were promised to clients and are gone: keep them, and add a function beside them. Lines" \
    "marked > are new: put them into api/abi.txt. docs/compatibility.md says what either means."

if [ -n "$readelf" ]; then
  "$readelf" --dynamic --wide "$library" |
    sed -n 's/.*(\(SONAME\|NEEDED\|RPATH\|RUNPATH\)).*\[\(.*\)\].*/\1 \2/p' >"$work/dynamic"
  for entry in 'SONAME libwexcorin.so.2' 'NEEDED libc.so.6'; do
    grep -qxF "$entry" "$work/dynamic" || fail "The library has no entry $entry: see the target wexcorin."
  done
  ! grep -vxE 'SONAME libwexcorin.so.2|NEEDED lib(stdc\+\+\.so\.6|m\.so\.6|gcc_s\.so\.1|c\.so\.6)|NEEDED ld-linux.*' \
    "$work/dynamic" || fail "The library must not have the entries above: it may need only the C++ and C runtime" \
    "(other dependencies belong to wexcorin_tool), and may have no search path of its own."
fi

# protected PATTERN WHAT: the pattern must be in $work/facts
protected() { grep -qE "$1" "$work/facts" || fail "$program has $2. See wexcorin_harden in cmake/targets.cmake."; }
for program in ${tool:+"$library" "$tool"}; do
  "$readelf" --wide --file-header --program-headers --dynamic --dyn-syms "$program" >"$work/facts"
  protected 'Type: +DYN' 'a fixed address'
  protected 'GNU_STACK .* RW ' 'an executable stack'
  protected 'GNU_RELRO' 'no read-only relocations'
  protected 'BIND_NOW|Flags:.* NOW' 'relocations that stay writable'
  protected '__stack_chk_fail' 'no stack protector'
  # the library is built with the same flags, but has no call that the compiler could replace by a checked one
  [ "$program" = "$library" ] || protected '__[a-z]+_chk(@|$)' 'no checked functions of the C library'
done
finish "$(wc -l <"$work/exported") names, as listed"
