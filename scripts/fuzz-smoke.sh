#!/usr/bin/env bash
# Builds the fuzz harnesses and runs each for SECONDS (30 by default); fails if
# any run leaves a crasher, timeout or leak behind. Each run's output goes to
# fuzz/build/HARNESS.log.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-30}
fuzz/build.sh >/dev/null
for source in fuzz/fuzz_*.cpp; do
    harness=$(basename "$source" .cpp)
    harness=${harness#fuzz_}
    artifacts=fuzz/build/artifacts/$harness
    log=fuzz/build/$harness.log
    rm -rf "$artifacts"
    if ! fuzz/run.sh "$harness" "$seconds" >"$log" 2>&1; then
        tail -n 40 "$log"
        echo "fuzz_$harness failed; its output is in $log" >&2
        exit 1
    fi
    if [ -n "$(ls -A "$artifacts" 2>/dev/null)" ]; then
        ls "$artifacts"
        echo "fuzz_$harness left findings in $artifacts (output in $log)" >&2
        exit 1
    fi
    echo "fuzz_$harness: ${seconds} s, no findings"
done
