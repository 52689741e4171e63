#!/bin/sh
# Sources of a folder include only the folders below it. The table is the same as in docs/architecture.md.
set -eu
failures=0

# may FOLDER ALLOWED...: the folders that the sources of a folder may include.
may() {
  folder=$1
  shift
  allowed=$(printf '%s/|' "$folder" "$@")
  wrong=$(grep -rnE '^#include ("[a-z]+|<wexcorin)/' "$folder" | grep -vE "#include [\"<](${allowed%|})" || :)
  if [ -n "$wrong" ]; then
    printf '%s/ may include %s, but:\n%s\n' "$folder" "${*:-nothing}" "$wrong"
    failures=1
  fi
}

may base
may options base
may input options base
may output options base
may api options base wexcorin
may tools output input options base
may examples wexcorin
may include wexcorin
may python/source wexcorin
for folder in interface host support; do may "tests/$folder" "$folder" support wexcorin; done
exit $failures
