#!/usr/bin/env bash
# Runs every test: installs what is missing, builds, and runs the suite.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh
ctest --test-dir build --output-on-failure -j2
