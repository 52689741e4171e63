# Makes the Debian packages of a build and compares what they hold with the list of what is installed.
# usage: debian.sh CPACK BUILD_DIRECTORY PREFIX LIB ZSH VERSION
. tests/build/common.sh
cpack=$1 build=$2 prefix=$3 lib=$4 zsh=$5 version=$6

for program in dpkg-deb dpkg-shlibdeps gzip strip; do needs "$program" "the Debian packages stay untried"; done
logged "CPack fails to make the Debian packages, see cmake/debian.cmake" \
  "$cpack" --config "$build/CPackConfig.cmake" -B "$work"

# What only packages have, and the manual page as it is in them.
packaged() {
  sed 's,\(share/man/.*\),\1.gz,'
  printf "share/doc/$package/%s\n" changelog.gz copyright
  [ ! -e "cmake/debian/$component.overrides" ] || echo "share/lintian/overrides/$package"
}
# package PACKAGE COMPONENT DEPENDS: a pattern of what it depends on
package() {
  package=$1 component=$2
  file=$(echo "$work/${package}_${version}"_*.deb)
  dpkg-deb --contents "$file" | grep -v '/$' | sed -e "s,^\([^ ]*  *\)\{5\}\.$prefix/,," >"$work/found"
  same_files "$package" "in the package $package" packaged
  depends=$(dpkg-deb --field "$file" Depends)
  echo "$depends" | grep -qx "$3" || fail "$package depends on $depends: that is not what it needs."
}
package libwexcorin2 library '.*libc6.*libstdc++6.*'
package libwexcorin-dev development "libwexcorin2 (= $version)"
package wexcorin tool '.*libc6.*libstdc++6.*'
finish "three packages, as listed"
