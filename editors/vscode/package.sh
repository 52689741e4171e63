# Packages the extension: compiles it and packs it with what it needs at run time. Its licence text is the copyright
# file of the Debian packages, its pictures are those of the documentation. Run in the repository's root, after
# node_packages of scripts/setup.bash.
# usage: package.sh COPYRIGHT OUT; OUT is the folder for the package
set -eu
copyright=$1 out=$2 place=build/vscode
cp -R editors/vscode/. "$place"
cp "$copyright" "$place/LICENSE.txt"
for picture in diagnostics completion hover; do cp "docs/editors-$picture.png" "$place/images/$picture.png"; done
cd "$place"
exec node_modules/.bin/vsce package --no-rewrite-relative-links --allow-missing-repository --out "$out" </dev/null
