#!/usr/bin/env bash
# Makes sure the Debian packages that the build needs are installed.
# As root it installs what is missing with apt-get; otherwise it prints the
# one apt-get line to run and fails.
#   scripts/deps.sh          packages for building, testing and benchmarks
#   scripts/deps.sh fuzz     the same, plus clang and its sanitizer runtime
set -euo pipefail

packages=(cmake make g++ pkg-config zlib1g-dev libxml2-dev libgtest-dev
          libgmock-dev libbenchmark-dev libmsgpack-dev libsqlite3-dev libssl-dev)
if [ "${1:-}" = "fuzz" ]; then
  packages+=(clang libclang-rt-14-dev)
fi

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -eq 0 ]; then
  echo "Installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}"
else
  echo "Missing packages. Run:" >&2
  echo "  sudo apt-get install -y ${missing[*]}" >&2
  exit 1
fi
