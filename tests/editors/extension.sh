# Compiles the extension, runs its client code against the tool and packages it, with what a package must hold.
# usage: extension.sh TOOL VERSION
. tests/build/common.sh
. tests/editors/common.sh
needs_packages "the extension is not compiled and its client not tried"
cp -R editors/vscode/. "$vscode"
logged "The extension does not compile" "$vscode/node_modules/.bin/tsc" -p "$vscode"
prepare
logged "The extension's client fails" env NODE_PATH="$vscode/node_modules" \
  node tests/editors/extension.js "$1" "$vscode/out" "$work"
finish "the extension's client code talks with the tool; the editor itself cannot be had here"
