# Completes command lines with the fish completion, and prints the same as complete.bash does for bash.
# usage: complete.fish COMPLETION_FILE TOOL
set -gx PATH (realpath (dirname $argv[2])) $PATH
source $argv[1]
function __fish_complete_path
    echo FILES
end

# A value is offered with the text before it.
while read -l line
    echo (complete -C $line | string replace -r '\t.*' '' | string replace -r '^.*=(?=.)' '' | LC_ALL=C sort -u)
end
