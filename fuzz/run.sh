#!/bin/sh
# Runs one harness: fuzz/run.sh HARNESS [SECONDS]. Seeds come from the bundled
# sample; the corpus grows in fuzz/build/corpus/HARNESS and crashers, timeouts
# and leaks land in fuzz/build/artifacts/HARNESS/. The run goes on after a
# finding (fork mode), so one call covers the whole time.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
harness=$1
seconds=${2:-600}
sample=$here/../samples/tideclock
corpus=$here/build/corpus/$harness
artifacts=$here/build/artifacts/$harness
mkdir -p "$corpus" "$artifacts"
if [ -z "$(ls -A "$corpus")" ]; then
    case $harness in
        project_reader) cp "$sample"/*.hhp "$corpus"/ ;;
        topic_scanner | popup_strings) cp "$sample"/html/*.htm "$corpus"/ ;;
        winhelp_reader) cp "$sample"/*.hpj "$sample"/*.hh "$corpus"/ ;;
        sitemap_reader) cp "$sample"/*.hhc "$sample"/*.hhk "$corpus"/ ;;
    esac
fi
exec "$here/build/fuzz_$harness" -fork=1 -ignore_crashes=1 -ignore_timeouts=1 -ignore_ooms=1 \
    -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=65536 \
    -artifact_prefix="$artifacts/" "$corpus"
