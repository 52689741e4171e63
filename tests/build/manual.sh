# Compares the commands, flags and forms in the manual page with those in the tool's own help, and checks the
# format of the page with man and mandoc, if they are installed.
# usage: manual.sh TOOL
. tests/build/common.sh
tool=$1 page=man/wexcorin.1
sed 's/\\-/-/g' "$page" >"$work/page"

# same WHAT WORDS: compares the words, from the tool, with the lines of standard input, from the page
same() {
  sort -u >"$work/in_page"
  printf '%s\n' "$2" | grep . | sort -u | diff -u - "$work/in_page" ||
    fail "The manual page and the tool's help have different $1, see above (lines with - are missing)."
}
# section BEGINNING: the part of the page from the line that begins so to the next heading of the same or a higher
# level
section() { awk -v line="$1" '$0 == line { on = 1; next } /^\.S[HS]/ { on = 0 } on' "$work/page"; }
# the flags at the beginning of the paragraphs of a section
page_flags() {
  section "$1" | grep -A 1 '^\.TP' | grep -o -e ' -[-a-z]*' -e ',~ -[-a-z]*' -e '~-[-a-z]*' | tr -d ' ,~'
}

sed -n 's/^\.SS //p' "$work/page" | same commands "$(commands)"
page_flags ".SH FLAGS" | same flags "$(flags "")"
for command in $(commands); do
  page_flags ".SS $command" | same "flags of $command" "$(flags "$command" | grep -v -x -e -h -e --help)"
done
section ".SS doc" | sed '1,/^is one of these:/d' | sed -n 's/^\.B //p' | same "forms of doc" "$(forms)"

if command -v man >/dev/null; then
  LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings --encoding=UTF-8 --local-file --troff-device=utf8 --ditroff \
    "./$page" 2>&1 >"$work/set" | sed 's/^/man: /' >"$work/warnings"
  [ -s "$work/set" ] || echo "man: no page" >>"$work/warnings"
  [ ! -s "$work/warnings" ] || fail "man cannot format the page: $(cat "$work/warnings")"
fi
if command -v mandoc >/dev/null; then mandoc -T lint -W warning "$page" || fail "mandoc finds mistakes, see above."; fi
finish "commands, flags and forms as in the help"
