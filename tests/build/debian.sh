# Makes the Debian packages of a build and compares their files with installed.txt.
# usage: debian.sh CPACK BUILD_DIRECTORY PREFIX LIB ZSH VERSION [EXTENSION]
# EXTENSION is the file name of the extension module for Python; without it there is no package for Python.
. tests/build/common.sh
cpack=$1 build=$2 prefix=$3 lib=$4 zsh=$5 version=$6 extension=${7-}

for program in dpkg-deb dpkg-shlibdeps gzip strip; do needs "$program" "the Debian packages stay untried"; done
logged "CPack fails to make the Debian packages, see cmake/debian.cmake" \
  "$cpack" --config "$build/CPackConfig.cmake" -B "$work"

# Every file of every package, and what every package depends on, without the versions of libraries.
for file in "$work"/*.deb; do
  package=$(dpkg-deb --field "$file" Package)
  dpkg-deb --contents "$file" | grep -v '/$' | sed -e "s,^\([^ ]*  *\)\{5\}\.$prefix/,$package ,"
  depends=$(dpkg-deb --field "$file" Depends)
  echo "$package depends: $(echo "$depends" | sed 's/ ([<>][^)]*)//g')"
done | sort >"$work/found"

[ -n "$extension" ] || without=/^python3-/d
sed -e '/^#/d' -e "${without-}" -e "s,EXTENSION,$extension,g" -e "s,VERSION,$version,g" \
  -e "s,  *LIB/, $lib/," -e "s,  *ZSH/, $zsh/," -e 's/  */ /g' \
  tests/build/installed.txt |
  while read -r package path kind source pattern; do
    case $kind in
      from) find "$source" -type f -name "$pattern" ! -name architecture.md | sed "s,^$source,$package $path," ;;
      *) echo "$package $path${kind:+ $kind}${source:+ $source}${pattern:+ $pattern}" ;;
    esac
  done | sort | diff -u - "$work/found" ||
  fail "The packages differ from tests/build/installed.txt, see above (lines with - are missing). The rules" \
    "of installation are in cmake/package.cmake; a new file needs a line in that list, too."
finish "the packages are as listed"
