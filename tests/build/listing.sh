# Lists of files, as installed.txt says and as they are; read by other scripts, which run in the repository's
# root.
# shellcheck shell=sh

# expected_files PACKAGE LIB ZSH VERSION: the files of a package, of all where it is empty, one a line; links
# with what they point to.
expected_files() {
  grep -v '^#' tests/build/installed.txt |
    sed -e "s,VERSION,$4,g" -e "s,  *LIB/, $2/," -e "s,  *ZSH/, $3/," -e 's/  */ /g' |
    while read -r package path kind source pattern; do
      [ -z "$1" ] || [ "$1" = "$package" ] || continue
      case $kind in
        from)
          [ ! -d "$source" ] ||
            find "$source" -type f -name "$pattern" ! -name architecture.md | sed "s,^$source,$path,"
          ;;
        *) echo "$path${kind:+ $kind $source}" ;;
      esac
    done | LC_ALL=C sort
}

# compare_files EXPECTED FOUND WHERE
compare_files() {
  if ! diff -u "$1" "$2"; then
    echo "The files $3 are not those of tests/build/installed.txt, see above (lines with - are missing)."
    echo "What is installed is said in cmake/package.cmake; a new file needs a line in that list, too."
    return 1
  fi
}
