# Drives Emacs with Eglot in batch mode, with the file of editors/emacs and the tool as its language server.
# usage: emacs.sh TOOL VERSION
. tests/build/common.sh
. tests/editors/common.sh
needs emacs "Emacs and Eglot are not tried"
emacs --batch --eval "(progn (package-initialize) (require 'eglot))" 2>/dev/null || {
  echo "elpa-eglot is not installed: Eglot is not tried"
  exit 77
}
prepare
for line in ";; Version: $2" "(define-package \"wexcorin-mode\" \"$2\""; do
  grep -qF "$line" editors/emacs/*.el || fail "No file of editors/emacs has the line $line."
done
package=$work/elpa/wexcorin-mode-$2 # as it is installed
mkdir -p "$package"
cp editors/emacs/*.el "$package"
logged "wexcorin-mode.el does not compile" \
  emacs --batch --eval "(setq byte-compile-error-on-warn t)" -f batch-byte-compile "$package/wexcorin-mode.el"
root=$PWD
cd "$work"
logged "tests/editors/emacs.el fails" env HOME="$work" LC_ALL=C.UTF-8 WEXCORIN="$1" timeout 60 \
  emacs --batch -l "$root/tests/editors/emacs.el"
finish "Emacs shows what the server says"
