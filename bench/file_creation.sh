#!/usr/bin/env bash
# Builds and runs bench/file_creation.cpp: how long creating the files of a new
# project takes by itself, each way a file can be made.
#
#   bench/file_creation.sh [FILES [BYTES]]     (default: 10000 files of 4500 bytes)
#
# Environment: WORK (default /tmp/tamrix-bench; a fresh folder under it is used
# and removed at the end unless KEEP_WORK=1).
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
work="${WORK:-/tmp/tamrix-bench}/files-$(date +%Y%m%d-%H%M%S)-$$"
mkdir -p "$work"
[ "${KEEP_WORK:-0}" = 1 ] || trap 'rm -rf "$work"' EXIT
"${CXX:-g++}" -std=c++20 -O2 -pthread -o "$work/file_creation" "$here/file_creation.cpp"
"$work/file_creation" "$work" "${1:-10000}" "${2:-4500}"
