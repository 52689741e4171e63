# Tests the colours that the extension's grammars give: line by line as tests/editors/grammar says, and whole examples,
# which hold nothing that is marked as a mistake.
. tests/build/common.sh
. tests/editors/common.sh
needs_packages "the grammars of the extension are not tried"
bin=$vscode/node_modules/.bin

logged "A grammar colours otherwise than tests/editors/grammar says" \
  "$bin/vscode-tmgrammar-test" --compact --config editors/vscode/package.json tests/editors/grammar/*

# Every line between the rules must be one of an example, but the last three of the definition.
grep -v '^\*' tests/editors/grammar/options.opt tests/editors/grammar/definition.def | sed 's/^[^:]*://' | head -n -3 |
  sort -u >"$work/tried"
sort -u examples/*.opt examples/*.def >"$work/examples"
comm -23 "$work/tried" "$work/examples" | grep . && fail "These lines are in none of the examples."

cp examples/solver*.def examples/types.def examples/first.def examples/solver.opt examples/types.opt examples/first.opt \
  examples/solver_priorities.opt "$work"
logged "The examples cannot be coloured" "$bin/vscode-tmgrammar-snap" --updateSnapshot \
  --config editors/vscode/package.json "$work"/*.opt "$work"/*.def
[ "$(find "$work" -name '*.snap' | wc -l)" = 8 ] || fail "Not all examples were coloured."
if grep -l 'invalid\.illegal\|comment\.block\.unread' "$work"/*.snap; then
  fail "These examples are marked as wrong or unread, see the grammars in editors/vscode/syntaxes."
fi
finish "the grammars colour the examples"
