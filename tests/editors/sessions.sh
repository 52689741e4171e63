# Plays recorded sessions with the tool, through a client that is made with the protocol's own package.
# usage: sessions.sh TOOL
. tests/build/common.sh
. tests/editors/common.sh
needs_packages "the recorded sessions are not played"
prepare
logged "The server answers otherwise than recorded" env NODE_PATH="$vscode/node_modules" \
  node tests/editors/session.js "$1" "$work" tests/editors/sessions/*.session
finish "the server answers as recorded"
