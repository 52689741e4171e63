# Shared by the scripts of this folder, after tests/build/common.sh: where the Node packages of the extension are.
# shellcheck shell=sh disable=SC2034,SC2154  # the scripts set and use the variables
vscode=$PWD/build/vscode

# needs_packages WHAT: skips the test if scripts/test could not install the packages; WHAT says what is then not tested
needs_packages() {
  needs node "$1"
  [ -e "$vscode/installed" ] || {
    echo "the Node packages are not installed in build/vscode (scripts/test does it): $1"
    exit 77
  }
}

# Puts a copy of the examples, which a test may change, into $work. Their definitions are named there.
prepare() {
  mkdir "$work/examples"
  cp examples/*.opt examples/*.def examples/*.expected "$work/examples"
  cat >"$work/wexcorin.json" <<'END'
{"definitions": [
  {"files": "examples/first.opt", "definition": "examples/first.def"},
  {"files": "examples/types.opt", "definition": "examples/types.def"},
  {"files": "*.opt", "definition": "examples/solver.def"}
]}
END
}
