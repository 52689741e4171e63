# Shared by the scripts of this folder, which read it with `source`. It has the root of the repository, installs
# Debian packages that a script needs and the machine lacks, and prints the table of coverage.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export root

# The packages that a build of the library, the tool and the tests needs.
# shellcheck disable=SC2034  # used by the scripts
build_packages=(binutils cmake g++ libcli11-dev libgmock-dev libgtest-dev nettle-dev ninja-build
  nlohmann-json3-dev)

# What the Python package needs beyond that.
# shellcheck disable=SC2034
python_packages=(pybind11-dev python3-dev)

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }

die() {
  say "$*"
  exit 1
}

installed() {
  [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

# Installs those of the given packages that are missing. Prints nothing when none is missing.
need() {
  local package missing=() become=()
  if ! command -v dpkg-query >/dev/null; then
    say "not a Debian system: going on as if the like of these packages were there: $*"
    return
  fi
  for package in "$@"; do
    installed "$package" || missing+=("$package")
  done
  if ((${#missing[@]} == 0)); then
    return
  fi
  if ((EUID != 0)); then
    command -v sudo >/dev/null ||
      die "these packages are missing: ${missing[*]}; install them as root (apt-get install ${missing[*]}) and run this again"
    become=(sudo)
  fi
  say "installing ${missing[*]}"
  local log
  log=$(mktemp)
  if ! { "${become[@]}" apt-get update &&
    "${become[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install --yes --no-install-recommends "${missing[@]}"; } \
    </dev/null >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    die "these packages could not be installed: ${missing[*]}; see above"
  fi
  rm -f "$log"
}

# Copies the extension in editors/vscode to build/vscode, and installs the Node packages that it is made and tried with
# there, once for each list of them. Returns false, with a word, when they cannot be had.
node_packages() {
  local place=$root/build/vscode
  if ! command -v npm >/dev/null && ! (need nodejs npm); then
    return 1
  fi
  mkdir -p "$place"
  find "$place" -mindepth 1 -maxdepth 1 ! -name node_modules ! -name installed ! -name log -exec rm -rf {} +
  cp -R "$root/editors/vscode/." "$place"
  if cmp -s "$place/package-lock.json" "$place/installed"; then
    return
  fi
  say "installing the packages of editors/vscode/package-lock.json in build/vscode"
  # No package runs a script of its own: none that is needed here has one to run.
  if ! (cd "$place" && npm ci --ignore-scripts --fetch-retries=1) </dev/null >"$place/log" 2>&1; then
    say "the Node packages cannot be installed, see build/vscode/log"
    return 1
  fi
  cp "$place/package-lock.json" "$place/installed"
}

# Prints lines and branches from llvm-cov's report, for each source in the library's folders and for each folder.
percentages() {
  awk '
    function row(name, lines, missed, branches, missedbranches) {
      printf "%-32s %5d lines %6.1f %% %6d branches %6.1f %%\n", name, lines, 100 - 100 * missed / (lines + !lines),
        branches, 100 - 100 * missedbranches / (branches + !branches)
    }
    $1 ~ /^(api|base|input|options|output)\// {
      row($1, $8, $9, $11, $12)
      split($1, path, "/")
      count[1] = path[1] "/"; count[2] = "all"
      for (i in count) {
        f = count[i]
        lines[f] += $8; missed[f] += $9; branches[f] += $11; missedbranches[f] += $12
      }
    }
    END { for (f in lines) row(f, lines[f], missed[f], branches[f], missedbranches[f]) }'
}
