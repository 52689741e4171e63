# Makes the Debian packages of a build and compares what they hold with the list of what is installed. Without
# the tools for Debian packages the test is skipped (exit code 77).
# usage: debian.sh CPACK BUILD_DIRECTORY PREFIX LIB ZSH VERSION; run in the repository's root
set -eu
cpack=$1 build=$2 prefix=$3 lib=$4 zsh=$5 version=$6
# shellcheck source=tests/build/listing.sh
. tests/build/listing.sh

for program in dpkg-deb dpkg-shlibdeps gzip strip; do
  if ! command -v "$program" >/dev/null; then
    echo "$program is not installed: the Debian packages stay untried"
    exit 77
  fi
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
if ! "$cpack" --config "$build/CPackConfig.cmake" -B "$work" >"$work/log" 2>&1; then
  cat "$work/log"
  echo "CPack fails to make the Debian packages, see above and cmake/debian.cmake."
  exit 1
fi

# What only packages have, and the manual page as it is in them.
debian_files() {
  expected_files "$1" "$lib" "$zsh" "$version" | sed 's,\(share/man/.*\),\1.gz,'
  printf "share/doc/$1/%s\n" changelog.gz copyright
  [ ! -e "cmake/debian/$2.overrides" ] || echo "share/lintian/overrides/$1"
}

status=0
while read -r package component; do
  file=$(echo "$work/${package}_${version}"_*.deb)
  debian_files "$package" "$component" | LC_ALL=C sort >"$work/expected"
  dpkg-deb --contents "$file" | grep -v '/$' |
    sed -e "s,^\([^ ]*  *\)\{5\}\.$prefix/,," | LC_ALL=C sort >"$work/found"
  compare_files "$work/expected" "$work/found" "in the package $package" || status=1
  case $component:$(dpkg-deb --field "$file" Depends) in
    library:*libc6*libstdc++6* | tool:*libc6*libstdc++6*) ;;
    "development:libwexcorin2 (= $version)") ;;
    *)
      echo "$package depends on $(dpkg-deb --field "$file" Depends): that is not what it needs."
      status=1
      ;;
  esac
done <<'END'
libwexcorin2 library
libwexcorin-dev development
wexcorin tool
END
[ "$status" -ne 0 ] || echo "three packages, as listed"
exit "$status"
