# Installs the Python package with pip, without a network, into an environment of its own. It is compiled against the
# library that the build installs.
# usage: pythonpip.sh CMAKE BUILD_DIRECTORY CXX_COMPILER
. tests/build/common.sh
cmake=$1 build=$2 cxx=$3
python=/usr/bin/python3

$python -c 'import ensurepip, venv' 2>/dev/null || {
  echo "python3-venv is not installed: the installation of the Python package stays untried"
  exit 77
}
"$cmake" --install "$build" --prefix "$work/prefix" >/dev/null
logged "An environment for Python cannot be made" $python -m venv "$work/environment"
logged "pip does not install the Python package, see python/build_backend.py" \
  env PYTHONDONTWRITEBYTECODE=1 PIP_NO_INDEX=1 PIP_DISABLE_PIP_VERSION_CHECK=1 \
  WEXCORIN_PREFIX="$work/prefix" CXX="$cxx" CXXFLAGS=-O0 "$work/environment/bin/pip" install ./python
"$work/environment/bin/python" -c '
import importlib.metadata, wexcorin
assert importlib.metadata.version("wexcorin") == wexcorin.__version__, wexcorin.__version__
print(wexcorin.Options("examples/first.def")["tol"], wexcorin.__file__)' >"$work/printed" ||
  fail "The installed package does not work, see above."
grep -q "^1e-06 $work/environment/" "$work/printed" || fail "Printed was: $(cat "$work/printed")"
finish "installed with pip"
