# Runs the tests of the Python package as it stands in the build, and compares what the client in Python prints.
# usage: python.sh PACKAGE_FOLDER
. tests/build/common.sh
python=/usr/bin/python3

$python -c 'import hypothesis, numpy, pytest' 2>"$work/log" || {
  echo "the Python package stays untried: $(tail -n 1 "$work/log") (python3-hypothesis, python3-numpy, python3-pytest)"
  exit 77
}
export PYTHONPATH="$1" PYTHONDONTWRITEBYTECODE=1
$python -m pytest -q python
printf '#!/bin/sh\nexec %s examples/client.py "$@"\n' $python >"$work/client"
chmod +x "$work/client"
sh tests/build/clients.sh "$work/client"
