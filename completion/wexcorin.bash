# Completion of wexcorin's command line in bash: commands, flags, forms of doc, and file names. `help`, --set and
# --group complete the options, values and groups of the definition file that the command line names.

# Prints the names and synonyms of the options of a definition, or the values of the option NAME, except those that are
# typed with blanks; with --groups, the names of the groups.
# usage: _wexcorin_options TOOL DEFINITION [NAME | --groups]
_wexcorin_options() {
  local tool=$1 definition=${2/#\~\//$HOME/}
  shift 2
  [[ ! -f $definition ]] || "$tool" complete "$definition" "$@" 2>/dev/null
}

# Prints the beginnings of option text: names, or dot options behind the symbol that was typed.
_wexcorin_settings() {
  if [[ $3 == ?*.* ]]; then
    _wexcorin_options "$1" "$2" | sed -n "s/^\\..*/${3%%.*}&=/p"
  else
    _wexcorin_options "$1" "$2" | sed -n 's/^[^.].*/&=/p'
  fi
}

# Lets bash complete the word as a file name.
_wexcorin_files() {
  compopt -o bashdefault -o default 2>/dev/null
}

_wexcorin_words() {
  mapfile -t COMPREPLY < <(compgen -W "$2" -- "$1")
}

# Completes the last word of a list that is separated by commas.
_wexcorin_list() {
  local before=
  [[ $1 != *,* ]] || before=${1%,*},
  mapfile -t COMPREPLY < <(compgen -P "$before" -W "$2" -- "${1##*,}")
}

_wexcorin_rules='deprecated early-end byte-order-mark return-alone line-cut text-cut zero-byte long-name indented group-undeclared
  group-empty reference-twice no-members no-options boolean-default no-help no-value-text name-not-found dashed-list comment-cut ctrl-z
  set-again utf-16'

# Reads the words before the cursor. Sets `command`, `arguments` (the words that are not options), `named` (the argument
# of --definition), and `awaits`: the option whose argument comes next. Bash treats each equals sign as a word of its own.
_wexcorin_read() {
  local i word
  for ((i = 1; i < COMP_CWORD; ++i)); do
    word=${COMP_WORDS[i]}
    if [[ $word == = ]]; then
      [[ -n $awaits ]] || ((++i))
    elif [[ -n $awaits ]]; then
      [[ $awaits != --definition ]] || named=$word
      awaits=
    elif [[ $word == --set || $word == -o || $word == --output || $word == --group || $word == --limit ||
      $word == --color || $word == --columns || $word == --allow || $word == --title || $word == --release ||
      $word == --definition || $word == --format || $word == --fail-on || $word == --from || $word == --to ||
      $word == --syntax ]]; then
      awaits=$word
    elif [[ $word == -?* ]]; then
      continue
    elif [[ -z $command ]]; then
      command=$word
    else
      arguments+=("$word")
    fi
  done
}

_wexcorin() {
  local cur=${COMP_WORDS[COMP_CWORD]} command='' awaits='' named='' definition name
  local arguments=()
  COMPREPLY=()
  _wexcorin_read
  definition=${arguments[0]-}
  [[ $command != doc && $command != get && $command != explain ]] || definition=${arguments[1]-}
  [[ -z $named ]] || definition=$named
  if [[ $cur == = || ${COMP_WORDS[COMP_CWORD - 1]} == = ]]; then
    cur=${cur#=}
    if [[ -z $awaits ]]; then # the value in --set NAME=VALUE
      name=${COMP_WORDS[COMP_CWORD - 1]}
      [[ $name != = ]] || name=${COMP_WORDS[COMP_CWORD - 2]}
      [[ $name != *.* ]] || name=.${name#*.}
      _wexcorin_words "$cur" "$(_wexcorin_options "$1" "$definition" "$name")"
      return 0
    fi
  fi

  case $awaits:$cur in
    --set:*)
      compopt -o nospace 2>/dev/null
      _wexcorin_words "$cur" "$(_wexcorin_settings "$1" "$definition" "$cur")"
      ;;
    --group:*) _wexcorin_words "$cur" "$(_wexcorin_options "$1" "$definition" --groups)" ;;
    --limit:* | --title:* | --release:*) ;;
    --fail-on:*) _wexcorin_words "$cur" 'breaking silent any' ;;
    --syntax:*) _wexcorin_words "$cur" 'wexcorin assignments' ;;
    --color:*) _wexcorin_words "$cur" 'auto always never' ;;
    --format:*) _wexcorin_words "$cur" 'text json sarif github' ;;
    --allow:*) _wexcorin_list "$cur" "$_wexcorin_rules" ;;
    --columns:*) _wexcorin_list "$cur" 'number name type set value origin default range' ;;
    -*) _wexcorin_files ;;
    *:-*)
      case $command in
        '') _wexcorin_words "$cur" '-h --help --version' ;;
        check)
          _wexcorin_words "$cur" '-h --help --set --definition --separately --json --format --warnings-as-errors --limit
            --allow --color --no-pager'
          ;;
        show) _wexcorin_words "$cur" '-h --help --set --changed --json --color --no-pager --columns --wide --origin --fingerprint' ;;
        explain) _wexcorin_words "$cur" '-h --help --set --color' ;;
        get) _wexcorin_words "$cur" '-h --help --set --default --color' ;;
        help | find) _wexcorin_words "$cur" '-h --help --color --no-pager' ;;
        template) _wexcorin_words "$cur" '-h --help -o --output --group --color' ;;
        write) _wexcorin_words "$cur" '-h --help --set -o --output --exact --force --color' ;;
        diff) _wexcorin_words "$cur" '-h --help --definition --defaults --matrix --json --markdown --fail-on --color --no-pager' ;;
        migrate)
          _wexcorin_words "$cur" '-h --help --from --to -o --output --in-place --no-backup --dry-run --clamp --pin --syntax
            --json --color'
          ;;
        doc) _wexcorin_words "$cur" '-h --help -o --output --title --release --force --color' ;;
        lsp) _wexcorin_words "$cur" '-h --help --stdio --color' ;;
      esac
      ;;
    *)
      case $command:${#arguments[@]} in
        :*) _wexcorin_words "$cur" 'check show explain get find help template write diff migrate doc lsp' ;;
        doc:0) _wexcorin_words "$cur" 'definition pascal html c markdown page json' ;;
        help:1)
          _wexcorin_words "$cur" "$(_wexcorin_options "$1" "$definition"; _wexcorin_options "$1" "$definition" --groups)"
          ;;
        lsp:* | get:0 | explain:0 | help:[!0]* | find:[!0]* | template:[!0]* | doc:[!1]*) ;;
        *) _wexcorin_files ;;
      esac
      ;;
  esac
}

complete -F _wexcorin wexcorin
