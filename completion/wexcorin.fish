# Completion of wexcorin's command line in fish: commands, flags, forms of doc, and file names. `help`, --set and
# --group complete the options, values and groups of the definition file that the command line names.

# Prints the command and its arguments before the cursor, without options and their values.
function __wexcorin_arguments
    set -l skip no
    for word in (commandline -opc)[2..-1]
        if test $skip = yes
            set skip no
        else if contains -- $word --set -o --output --group --limit --allow --title --release --color --columns \
                --definition --format --fail-on --from --to --syntax
            set skip yes
        else if not string match -q -- '-?*' $word
            echo -- $word
        end
    end
end

function __wexcorin_in
    set -l arguments (__wexcorin_arguments)
    test (count $arguments) -gt 0; and contains -- $arguments[1] $argv
end

# Prints the names and synonyms of the options of the definition file, or the values of an option; with --groups, the
# names of the groups.
function __wexcorin_options
    set -l arguments (__wexcorin_arguments)
    set -l definition $arguments[2]
    contains -- $arguments[1] doc get explain; and set definition $arguments[3]
    set -l words (commandline -opc)
    set -l named (contains -i -- --definition $words); and set definition $words[(math $named + 1)]
    set -l joined (string replace -rf '^--definition=' '' -- $words); and set definition $joined[1]
    set definition (string replace -r '^~/' "$HOME/" -- $definition)
    set -l tool (commandline -opc)[1]
    test -f "$definition"; and $tool complete $definition $argv 2>/dev/null
end

# Prints option text for --set. A dot option stands behind a symbol.
function __wexcorin_settings
    set -l typed (commandline -ct)
    if string match -q '*=*' -- $typed
        set -l name (string replace -r '=.*' '' -- $typed)
        set -l option (string replace -r '^[^.]+(?=\.)' '' -- $name)
        string replace -r '^' "$name=" -- (__wexcorin_options $option)
    else if string match -q '?*.*' -- $typed
        set -l symbol (string replace -r '\..*' '' -- $typed)
        string replace -r '^(.*)$' "$symbol\$1=" -- (__wexcorin_options | string match '.*')
    else
        string replace -r '$' = -- (__wexcorin_options | string match -v '.*')
    end
end

function __wexcorin_rules
    printf '%s\n' deprecated early-end byte-order-mark return-alone line-cut text-cut long-name indented \
        group-undeclared group-empty reference-twice no-members boolean-default no-help no-value-text name-not-found \
        dashed-list comment-cut set-again ctrl-z no-options zero-byte utf-16
end

function __wexcorin_words
    set -l arguments (__wexcorin_arguments)
    switch "$arguments[1] "(count $arguments)
        case ' 0'
            printf '%s\n' check\t'Report what is wrong in a definition and in option files' \
                show\t'List the options with their values' \
                explain\t'Show one option and all that lines did with it' get\t'Print the value of one option' \
                find\t'Search names, synonyms, values and help of the options' \
                help\t'Print the help that a definition holds' template\t'Write an option file to start from' \
                write\t'Write the settings of option files as one option file' \
                diff\t'Compare two definitions, or the values of option files' \
                migrate\t'Bring option files of an older definition up to date' \
                doc\t'Write a definition in another form' lsp\t'Serve an editor'
        case 'doc 1'
            printf '%s\n' definition\t'A definition file' pascal\t'An include file with the option numbers' \
                html\t'A table' c\t'A C and C++ header' markdown\t'A reference in Markdown' \
                page\t'A reference as one HTML page that can be searched' json\t'The whole definition as JSON'
        case 'help 2'
            __wexcorin_options
            __wexcorin_options --groups
        case 'get 1' 'explain 1' 'help [!1]*' 'doc [!2]'
        case 'help 1' 'find 1' 'template 1' 'doc 2' 'get *' 'explain *' 'check *' 'show *' 'write *' 'diff *' 'migrate *'
            __fish_complete_path (commandline -ct)
    end
end

complete -c wexcorin -f -a '(__wexcorin_words)'
complete -c wexcorin -s h -l help -d 'Print help'
complete -c wexcorin -n 'test (count (__wexcorin_arguments)) = 0' -l version -d 'Print the version'
complete -c wexcorin -n '__wexcorin_in check show explain get find help template write diff migrate doc lsp' -l color -x -a 'auto always never' \
    -d 'When to print colours'
complete -c wexcorin -n '__wexcorin_in lsp' -l stdio -d 'Changes nothing'
complete -c wexcorin -n '__wexcorin_in check show find help diff' -l no-pager -d 'Print directly on the terminal'
complete -c wexcorin -n '__wexcorin_in check show explain get write' -l set -x -a '(__wexcorin_settings)' \
    -d 'Option text to read after the files'
complete -c wexcorin -n '__wexcorin_in check show diff migrate' -l json -d 'Print as JSON'
complete -c wexcorin -n '__wexcorin_in check' -l warnings-as-errors -d 'Let warnings count for the exit code'
complete -c wexcorin -n '__wexcorin_in check' -l limit -x -d 'Print at most so many findings of one kind'
complete -c wexcorin -n '__wexcorin_in check' -l allow -x -a '(__fish_complete_list , __wexcorin_rules)' \
    -d 'Leave out the warnings of these rules'
complete -c wexcorin -n '__wexcorin_in check' -l definition -r -f -a '(__fish_complete_path (commandline -ct))' \
    -d 'Definition file'
complete -c wexcorin -n '__wexcorin_in check' -l format -x -a 'text json sarif github' -d 'Format of the findings'
complete -c wexcorin -n '__wexcorin_in check' -l separately -d 'Check each option file on its own'
complete -c wexcorin -n '__wexcorin_in show' -l changed -d 'List only options that were set'
complete -c wexcorin -n '__wexcorin_in show' -l wide -d 'Print each option on one line'
complete -c wexcorin -n '__wexcorin_in show' -l origin -d 'Say where each value comes from'
complete -c wexcorin -n '__wexcorin_in show' -l fingerprint -d 'Print a short text for all values'
complete -c wexcorin -n '__wexcorin_in show' -l columns -x -a 'number name type set value origin default range' \
    -d 'Print only these columns'
complete -c wexcorin -n '__wexcorin_in get' -l default -d 'Print the default'
complete -c wexcorin -n '__wexcorin_in template' -l group -x -a '(__wexcorin_options --groups)' -d 'Only the options of this group'
complete -c wexcorin -n '__wexcorin_in template write doc' -s o -l output -r -f \
    -a '(__fish_complete_path (commandline -ct))' -d 'File to write'
complete -c wexcorin -n '__wexcorin_in write' -l exact -d 'Write numbers with all their digits'
complete -c wexcorin -n '__wexcorin_in write' -l force -d 'Write even if there are errors in what was read'
complete -c wexcorin -n '__wexcorin_in diff' -l definition -r -f -a '(__fish_complete_path (commandline -ct))' \
    -d 'Compare option files of this definition'
complete -c wexcorin -n '__wexcorin_in diff' -l defaults -d 'Compare one option file with the defaults'
complete -c wexcorin -n '__wexcorin_in diff' -l matrix -d 'Compare any number of option files'
complete -c wexcorin -n '__wexcorin_in diff' -l markdown -d 'Print the differences as Markdown'
complete -c wexcorin -n '__wexcorin_in diff' -l fail-on -x -a 'breaking silent any' -d 'Which changes give exit code 1'
complete -c wexcorin -n '__wexcorin_in migrate' -l from -r -f -a '(__fish_complete_path (commandline -ct))' -d 'Older definition'
complete -c wexcorin -n '__wexcorin_in migrate' -l to -r -f -a '(__fish_complete_path (commandline -ct))' -d 'Newer definition'
complete -c wexcorin -n '__wexcorin_in migrate' -s o -l output -r -f -a '(__fish_complete_directories (commandline -ct))' \
    -d 'Write the files into this folder'
complete -c wexcorin -n '__wexcorin_in migrate' -l in-place -d 'Replace the files'
complete -c wexcorin -n '__wexcorin_in migrate' -l no-backup -d 'Keep no copy of replaced files'
complete -c wexcorin -n '__wexcorin_in migrate' -l dry-run -d 'Print the changes as a unified diff'
complete -c wexcorin -n '__wexcorin_in migrate' -l clamp -d 'Move values out of the new bounds to the bound'
complete -c wexcorin -n '__wexcorin_in migrate' -l pin -d 'Write old defaults that a file relies on'
complete -c wexcorin -n '__wexcorin_in migrate' -l syntax -x -a 'wexcorin assignments' -d 'Syntax of the files'
complete -c wexcorin -n '__wexcorin_in doc' -l title -x -d 'Title of the document'
complete -c wexcorin -n '__wexcorin_in doc' -l release -x -d 'Version and date of the solver'
complete -c wexcorin -n '__wexcorin_in doc' -l force -d 'Write a file that does not compile'
