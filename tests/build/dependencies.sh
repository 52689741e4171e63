# Checks the shared library's own name and that it needs nothing beyond the C++ and C runtime.
# usage: dependencies.sh LIBRARY SONAME READELF
set -eu
export LC_ALL=C
library=$1 soname=$2 readelf=$3

dynamic=$("$readelf" --dynamic --wide "$library")
entries() { printf '%s\n' "$dynamic" | sed -n "s/.*($1).*\[\(.*\)\].*/\1/p"; }

status=0
found=$(entries SONAME)
if [ "$found" != "$soname" ]; then
  echo "The soname is \"$found\", expected \"$soname\"."
  echo "See SOVERSION of the target wexcorin: it is the interface version."
  status=1
fi

needed=$(entries NEEDED)
case $needed in
  *libc.so.6*) ;;
  *)
    echo "The library does not name libc.so.6 among what it needs: is $library complete?"
    status=1
    ;;
esac
for entry in $needed; do
  case $entry in
    libstdc++.so.6 | libm.so.6 | libgcc_s.so.1 | libc.so.6 | ld-linux-x86-64.so.2) ;;
    *)
      echo "The library needs $entry, which is part of neither the C++ nor the C runtime."
      echo "Take it off the target wexcorin's link libraries; dependencies of the tool belong to wexcorin_tool."
      status=1
      ;;
  esac
done

if [ -n "$(entries RPATH)$(entries RUNPATH)" ]; then
  echo "The library has a search path of its own: $(entries RPATH) $(entries RUNPATH)"
  echo "It needs none; see what links it with -rpath."
  status=1
fi
[ "$status" -ne 0 ] || printf "%s needs %s\n" "$soname" "$(echo "$needed" | tr "\n" " ")"
exit "$status"
