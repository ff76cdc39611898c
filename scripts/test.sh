#!/usr/bin/env bash
# Runs every check: installs what is missing, checks the formatting, fuzzes each
# harness briefly, builds and tests the core without the GUI (with assertions on)
# and under AddressSanitizer and UndefinedBehaviorSanitizer, cross-builds for
# Windows and runs those tests and a byte comparison under Wine, then builds
# everything and runs the whole suite, whose summary closes the run.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/check-format.sh
scripts/fuzz-smoke.sh 30
scripts/test-core.sh build-nogui -DCMAKE_BUILD_TYPE=Debug
scripts/test-core.sh build-asan -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAMRIX_SANITIZE=ON
scripts/test-windows.sh build-nogui/src/cli/tamrix-cli
scripts/build.sh
ctest --test-dir build --output-on-failure -j2
