#!/bin/sh
# Regenerates docs/wizard-step-0.png ... docs/wizard-step-5.png: converts a
# copy of the bundled sample in the real wizard window on a virtual display.
# Usage: scripts/screenshots.sh [BUILD_DIR]   (default: build)
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
program="$build/src/gui/tamrix-screenshots"
[ -x "$program" ] || { echo "build $program first (ninja -C $build tamrix-screenshots)" >&2; exit 1; }
# A fixed folder, so the paths in the pictures stay the same from run to run.
work=${TMPDIR:-/tmp}/tamrix-screenshots
rm -rf "$work"
mkdir -p "$work"
trap 'rm -rf "$work"' EXIT
cp -r "$root/samples/tideclock" "$work/in"
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-1299333420} \
    xvfb-run -a -s "-screen 0 1280x1024x24" "$program" "$work/in" "$work/out" "$root/docs"
