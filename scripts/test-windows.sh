#!/usr/bin/env bash
# Cross-builds the core, tamrix-cli and the tests for 64-bit Windows with
# MinGW-w64 into build-windows, runs the tests under Wine, and checks that
# tamrix-cli.exe writes the same projects as the Linux tamrix-cli.
# Usage: scripts/test-windows.sh [LINUX_CLI]   (default: build/ or build-nogui/)
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh g++-mingw-w64-x86-64-posix wine64 googletest cmake ninja-build

build=build-windows
cmake -S . -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE=-O2 -DTAMRIX_BUILD_GUI=OFF \
    -DTAMRIX_WARNINGS_AS_ERRORS=ON >/dev/null
ninja -C "$build" -j2

# Wine without a display, without the Mono and Gecko installers, quiet.
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
export WINEPREFIX="$PWD/$build/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" DISPLAY=
[ -f "$WINEPREFIX/system.reg" ] || "$wine" wineboot --init >/dev/null 2>&1
"$wine" "$build/tests/tamrix_tests.exe" --gtest_brief=1
"$wine" "$build/tests/tamrix_concurrency_tests.exe" --gtest_brief=1
scripts/compare-windows.sh "$build" "${1:-}"
