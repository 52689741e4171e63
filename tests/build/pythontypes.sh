# Checks the types of the Python package and of the examples that use it.
. tests/build/common.sh
/usr/bin/python3 -c 'import mypy' 2>/dev/null || {
  echo "mypy is not installed: the types of the Python package stay unchecked"
  exit 77
}
export MYPYPATH=python
for sources in "python/wexcorin python/build_backend.py" examples/client.py examples/tune.py; do
  # shellcheck disable=SC2086  # words
  /usr/bin/python3 -m mypy --config-file python/pyproject.toml --cache-dir "$work/cache" $sources ||
    fail "The types of $sources are wrong, see above."
done
finish "the types fit"
