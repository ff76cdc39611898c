#!/usr/bin/env bash
# Installs what Tamrix needs to build and test on Debian 12 (run as root), or
# only the packages named on the command line; each only when it is missing.
set -euo pipefail
packages=("$@")
[ $# -gt 0 ] || packages=(build-essential cmake ninja-build pkg-config libgtest-dev libgmock-dev
          qt6-base-dev libgl-dev unrtf poppler-utils xvfb xauth fp-utils nodejs libchm-dev libjemalloc-dev
          clang-14 libclang-rt-14-dev clang-format-14)
missing=()
for p in "${packages[@]}"; do
    dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq
    apt-get install -y -qq "${missing[@]}" >/dev/null
fi
