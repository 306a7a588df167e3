# SPDX-License-Identifier: MIT
# Shared by the scripts: where the project is, what to say, what to install.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
jobs=${JOBS:-$(nproc)}
apt_tries=(-o Acquire::Retries=5)

say() { printf '\n== %s\n' "$*" >&2; }

# packages SECTION...: the packages of these sections of scripts/packages; "all" is every section.
packages() {
  awk -v wanted=" $* " '
    { sub(/#.*/, ""); gsub(/[[:space:]]/, "") }
    /^\[/ { on = index(wanted, " all ") || index(wanted, " " substr($0, 2, length($0) - 2) " "); next }
    on && $0 != ""' scripts/packages
}

# install_packages SECTION...: installs what is missing of them; says what and why it asks for
# rights.
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
  "${as_root[@]}" apt-get "${apt_tries[@]}" update -q >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get "${apt_tries[@]}" install -y -q --no-install-recommends "${missing[@]}" >&2
}

# configure_and_build PRESET [cmake -D options...]
configure_and_build() { configure_and_build_target "$1" all "${@:2}"; }

# configure_and_build_target PRESET "TARGET..." [cmake -D options...]
configure_and_build_target() {
  local preset=$1 targets
  read -ra targets <<< "$2"
  shift 2
  say "Building: $preset"
  cmake --preset "$preset" "$@" >&2
  cmake --build --preset "$preset" --target "${targets[@]}" -j "$jobs" >&2
}

# What only tests and benchmarks need is left out of a first build of the programs; a build that
# has it keeps it.
programs_only=()
[ -f build/CMakeCache.txt ] || programs_only=(-DOV_TESTS=OFF -DOV_BENCH=OFF)

# All of it: programs, tests, benchmarks.
build_everything() {
  install_packages build display test bench
  configure_and_build release -DOV_TESTS=ON -DOV_BENCH=ON
}
