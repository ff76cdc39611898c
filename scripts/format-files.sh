#!/usr/bin/env bash
# Lists the C++ files that clang-format looks after: every tracked .cpp and .h.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -- '*.cpp' '*.h'
