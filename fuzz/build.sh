#!/bin/sh
# Builds every fuzz harness with clang into fuzz/build (or the folder given).
set -eu
here=$(cd "$(dirname "$0")" && pwd)
out=${1:-$here/build}
CC=${CC:-clang-14} CXX=${CXX:-clang++-14} cmake -S "$here" -B "$out" -G Ninja
ninja -C "$out" -j2
