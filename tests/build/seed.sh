#!/bin/sh
# seed.sh PROGRAM: hashes differ between processes even where all addresses are the same, so nobody can
# prepare names that collide.
set -eu
setarch -R true 2>/dev/null || exit 77
first=$(setarch -R "$1" hash)
second=$(setarch -R "$1" hash)
if [ -z "$first" ] || [ "$first" = "$second" ]; then
  printf 'two processes have the hash %s\n' "$first"
  exit 1
fi
