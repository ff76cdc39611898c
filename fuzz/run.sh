#!/bin/sh
# Runs one harness: fuzz/run.sh HARNESS [SECONDS]. Seeds come from the bundled
# sample and, when present, the real projects in ../shared/corpus (copied at run
# time, never into the repository); fuzz/tamrix.dict gives the tags, attributes
# and section names the readers look for. Inputs grow up to 1 MB, so faults that
# only large input shows can be reached. The corpus grows in
# fuzz/build/corpus/HARNESS; crashers, timeouts and leaks land in
# fuzz/build/artifacts/HARNESS/. The run goes on after a finding (fork mode), so
# one call covers the whole time.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
harness=$1
seconds=${2:-600}
sample=$here/../samples/tideclock
shared=${TAMRIX_CORPUS:-$here/../../shared/corpus}
corpus=$here/build/corpus/$harness
artifacts=$here/build/artifacts/$harness
mkdir -p "$corpus" "$artifacts"
# Copies the files of the sample and the shared corpus whose names end in one of
# the given extensions (case ignored) into the harness's corpus.
seed() {
    for ext in "$@"; do
        find "$sample" "$shared" -type f -iname "*.$ext" 2>/dev/null |
            while IFS= read -r file; do
                cp "$file" "$corpus/$(basename "$(dirname "$file")")-$(basename "$file" | tr ' ' _)"
            done
    done
}
if [ -z "$(ls -A "$corpus")" ]; then
    case $harness in
        project_reader) seed hhp ;;
        topic_scanner | popup_strings) seed htm ;;
        winhelp_reader) seed hpj hh h ;;
        sitemap_reader) seed hhc hhk ;;
    esac
fi
exec "$here/build/fuzz_$harness" -fork=1 -ignore_crashes=1 -ignore_timeouts=1 -ignore_ooms=1 \
    -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=1048576 \
    -dict="$here/tamrix.dict" -artifact_prefix="$artifacts/" "$corpus"
