#!/usr/bin/env bash
# Rewrites every C++ file in place to match .clang-format.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/format-files.sh | xargs -r "${CLANG_FORMAT:-clang-format-14}" --style=file -i
