#!/usr/bin/env bash
# One command for a new machine: install, build, and convert the bundled sample.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh
scripts/convert-sample.sh
