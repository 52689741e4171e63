# Looks for the traces of the protections that a release build has in the programs that clients get.
# usage: hardening.sh READELF PROGRAM...
set -eu
export LC_ALL=C
readelf=$1
shift

status=0
# expect PATTERN WHAT: the pattern must be in $facts
expect() {
  if ! printf '%s\n' "$facts" | grep -q -E "$1"; then
    echo "$program has $2. See wexcorin_harden in cmake/targets.cmake."
    status=1
  fi
}

for program in "$@"; do
  facts=$("$readelf" --wide --file-header --program-headers --dynamic --dyn-syms "$program")
  expect 'Type: +DYN' 'a fixed address'
  expect 'GNU_STACK .* RW ' 'an executable stack'
  expect 'GNU_RELRO' 'no read-only relocations'
  expect 'BIND_NOW|Flags:.* NOW' 'relocations that stay writable'
  expect '__stack_chk_fail' 'no stack protector'
  case $program in
    *.so*) ;; # built alike, but the compiler finds no call in it that could be checked
    *) expect '__[a-z]+_chk(@|$)' 'no checked functions of the C library' ;;
  esac
done
[ "$status" -ne 0 ] || echo "$# programs, hardened"
exit "$status"
