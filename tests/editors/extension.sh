# Packages the extension, checks what its package holds, and runs the client code that is in it against the tool.
# usage: extension.sh TOOL COPYRIGHT VERSION
. tests/build/common.sh
. tests/editors/common.sh
needs_packages "the extension is not compiled and its client not tried"
logged "The extension cannot be packaged" sh editors/vscode/package.sh "$2" "$work"
[ -e "$work/wexcorin-$3.vsix" ] || fail "The version in editors/vscode/package.json is not $3."
python3 -m zipfile -e "$work"/*.vsix "$work/package"
extension=$work/package/extension
for file in LICENSE.txt README.md CHANGELOG.md images/icon.png images/hover.png syntaxes language-configuration.json; do
  [ -e "$extension/$file" ] || [ -e "$extension/$(echo "$file" | tr '[:upper:]' '[:lower:]')" ] ||
    fail "The extension's package has no $file."
done
prepare
logged "The extension's client fails" node tests/editors/extension.js "$1" "$extension/out" "$work"
finish "the extension's client code talks with the tool; the editor itself cannot be had here"
