# SPDX-License-Identifier: MIT
# Shared by the scripts: where the project is, what to say, what to install.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
jobs=${JOBS:-$(nproc)}

say() { printf '\n== %s\n' "$*" >&2; }

# The packages that a list names; scripts/packages unless told otherwise.
packages() { sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "${1:-scripts/packages}"; }

# Installs the packages of a list that are missing; says what and why it asks for rights.
install_packages() {
  local missing=()
  local name
  for name in $(packages "$@"); do
    dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'install ok installed' || missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  say "Installing ${#missing[@]} missing Debian packages: ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "Run this as root once, or install sudo: apt-get install ${missing[*]}" >&2
      exit 1
    }
    as_root=(sudo)
  fi
  "${as_root[@]}" apt-get update -q >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${missing[@]}" >&2
}

# configure_and_build PRESET [cmake -D options...]
configure_and_build() {
  local preset=$1
  shift
  say "Building: $preset"
  cmake --preset "$preset" "$@" >&2
  cmake --build --preset "$preset" -j "$jobs" >&2
}
