# Completes command lines with the bash completion. For each line of standard input it prints what may follow at
# the end of the line: the words, sorted, with blanks between, and FILES where bash would complete a file name.
# usage: complete.bash COMPLETION_FILE TOOL
set -eu
# shellcheck source=completion/wexcorin.bash
source "$1"
tool=$2

# Replaces bash's own, which works only while bash handles a key.
compopt() { [[ $* != *default* ]] || files=FILES; }

while IFS= read -r line; do
  # words as bash splits them: an equals sign is a word, and an empty word begins after a blank at the end
  read -ra COMP_WORDS <<<"${line//=/ = }"
  [[ $line != *' ' ]] || COMP_WORDS+=('')
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  files=''
  _wexcorin "$tool"
  mapfile -t words < <(printf '%s\n' "${COMPREPLY[@]}" "$files" | sed '/^$/d' | LC_ALL=C sort)
  echo "${words[*]}"
done
