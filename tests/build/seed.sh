#!/bin/sh
# seed.sh PROGRAM: hashes differ between processes even where all addresses are the same, so nobody can
# prepare names that collide.
set -eu
setarch -R true 2>/dev/null || exit 77
first=$(setarch -R "$1" hash)
second=$(setarch -R "$1" hash)
[ -n "$first" ] && [ "$first" != "$second" ] || {
  printf 'two processes have the hash %s\n' "$first"
  exit 1
}
