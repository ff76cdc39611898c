#!/usr/bin/env bash
# Builds the core and its tests without the GUI into FOLDER and runs them:
#   scripts/test-core.sh FOLDER [CMAKE ARGUMENTS...]
set -euo pipefail
cd "$(dirname "$0")/.."
folder=$1
shift
cmake -S . -B "$folder" -G Ninja -DTAMRIX_BUILD_GUI=OFF "$@" >/dev/null
cmake --build "$folder" --parallel "$(nproc)"
ctest --test-dir "$folder" --output-on-failure -j"$(nproc)"
