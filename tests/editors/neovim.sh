# Drives Neovim without a window, with the files of editors/neovim and the tool as its language server.
# usage: neovim.sh TOOL
. tests/build/common.sh
. tests/editors/common.sh
needs nvim "Neovim's client is not tried"
prepare
ln -s "$1" "$work/wexcorin"
root=$PWD
cd "$work"
for script in colours.lua client.lua; do
  logged "tests/editors/neovim/$script fails" env PATH="$work:$PATH" HOME="$work" XDG_STATE_HOME="$work" \
    XDG_CONFIG_HOME="$work" XDG_DATA_HOME="$work" NVIM_LOG_FILE="$work/log.nvim" LC_ALL=C.UTF-8 timeout 60 \
    nvim --clean --headless --cmd "set runtimepath^=$root/editors/neovim" -S "$root/tests/editors/neovim/$script"
done
finish "Neovim shows what the server says"
