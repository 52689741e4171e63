# Completes command lines with the zsh completion, and prints the same as complete.bash does for bash. The real
# completion system runs in a second zsh on a pseudo terminal; its line editor receives one line after the other.
# usage: complete.zsh COMPLETION_FILE TOOL
zmodload zsh/zpty
export completion=${1:A:h} tool_folder=${2:A:h} work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cat >"$work/lines"

cat >"$work/.zshrc" <<'INNER'
path=($tool_folder $path)
fpath=($completion $fpath)
autoload -Uz compinit && compinit -u -D
_files() { compadd FILES }

# Records all words that are added. Calls that only test words are passed on.
compadd() {
  if [[ $@[1,(i)(-|--)] != *-(O|A|D)\ * ]]; then
    local -a matches
    builtin compadd -O matches "$@"
    found+=("${matches[@]}")
  fi
  builtin compadd "$@"
}

capture() {
  found=()
  _main_complete
  print -r -- ${(o)found} >>$work/words
  compstate[insert]= compstate[list]=
}
zle -C capture list-choices capture

zle-line-init() {
  for line in "${(@f)$(<$work/lines)}"; do
    BUFFER=$line CURSOR=$#line
    zle capture
  done
  exit
}
zle -N zle-line-init
INNER

export ZDOTDIR=$work LC_ALL=C
zpty inner exec zsh -d -i
while zpty -r inner printed; do screen+=$printed; done
if [[ ! -s $work/words ]]; then
  print -r -- "$screen"
  exit 1
fi
cat "$work/words"
