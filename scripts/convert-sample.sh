#!/usr/bin/env bash
# Converts the bundled sample project into a fresh folder and says what was done.
set -euo pipefail
cd "$(dirname "$0")/.."
out="$PWD/out/TideClock"
rm -rf "$out"
mkdir -p "$out"
build/src/cli/tamrix-cli convert samples/tideclock/TideClock.hhp "$out/TideClock.hhp" \
    --hpj samples/tideclock/TideClock.hpj --css --popups --yes
echo
echo "Compile $out/TideClock.hhp with HTML Help Workshop to get TideClock.chm,"
echo "or on Linux: build/src/cli/tamrix-cli compile $out/TideClock.hhp"
