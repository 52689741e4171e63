# Compares the commands, options and forms in the manual page with those in the tool's own help, and has man
# and mandoc, where they are installed, look at its form.
# usage: manual.sh PAGE TOOL
set -eu
export LC_ALL=C
page=$1 tool=$2
# shellcheck source=tests/build/toolhelp.sh
. "$(dirname "$0")/toolhelp.sh"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
sed 's/\\-/-/g' "$page" >"$work/page"

# complain TEXT: noted in a file, since parts of pipelines complain, too
complain() {
  echo "$1" | tee -a "$work/complaints"
}

# same WHAT FILE: the lines of the file are what the tool has, those of standard input what the page has
same() {
  sort -u >"$work/in_page"
  sort -u "$2" >"$work/in_tool"
  if ! diff -u "$work/in_tool" "$work/in_page"; then
    complain "The manual page has other $1 than the tool's help, see above (lines with -: missing)."
  fi
}

# section BEGINNING: the part of the page from the line on that begins so, to the next heading of its kind or
# above
section() { awk -v line="$1" '$0 == line { on = 1; next } /^\.S[HS]/ { on = 0 } on' "$work/page"; }

# the options that paragraphs of a section begin with
page_flags() {
  section "$1" | grep -A 1 '^\.TP' | grep -o -e ' -[-a-z]*' -e ',~ -[-a-z]*' -e '~-[-a-z]*' | tr -d ' ,~'
}

commands >"$work/commands"
sed -n 's/^\.SS //p' "$work/page" | same commands "$work/commands"
flags "" >"$work/flags"
page_flags ".SH OPTIONS" | same options "$work/flags"
for command in $(commands); do
  flags "$command" | grep -v -x -e -h -e --help >"$work/flags" || true
  page_flags ".SS $command" | same "options of $command" "$work/flags"
done
forms >"$work/forms"
section ".SS doc" | sed '1,/^is one of these:/d' | sed -n 's/^\.B //p' | same "forms of doc" "$work/forms"

if command -v man >/dev/null; then
  LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings --encoding=UTF-8 --local-file --troff-device=utf8 --ditroff \
    "$page" >"$work/set" 2>"$work/warnings"
  if [ ! -s "$work/set" ] || [ -s "$work/warnings" ]; then
    cat "$work/warnings"
    complain "man cannot set the manual page without complaints, see above."
  fi
fi
if command -v mandoc >/dev/null && ! mandoc -T lint -W warning "$page"; then
  complain "mandoc finds mistakes in the manual page, see above."
fi
[ ! -e "$work/complaints" ] || exit 1
echo "$(wc -l <"$work/forms") forms of doc, commands and options as in the help"
