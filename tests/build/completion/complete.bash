# Completes command lines with the bash completion. For each line of standard input, taken up to its end,
# prints what may come: the words with blanks between, sorted, and FILES where bash is to complete a file
# name.
# usage: complete.bash COMPLETION_FILE TOOL
set -eu
# shellcheck source=completion/wexcorin.bash
source "$1"
tool=$2

# Takes the place of bash's own, which works only while a key is being handled.
compopt() { [[ $* != *default* ]] || files=FILES; }

while IFS= read -r line; do
  # words as bash makes them: an equals sign is one, and behind a blank begins an empty one
  read -ra COMP_WORDS <<<"${line//=/ = }"
  [[ $line != *' ' ]] || COMP_WORDS+=('')
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  files=''
  _wexcorin "$tool"
  mapfile -t words < <(printf '%s\n' "${COMPREPLY[@]}" "$files" | sed '/^$/d' | LC_ALL=C sort)
  echo "${words[*]}"
done
