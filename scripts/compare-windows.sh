#!/usr/bin/env bash
# Converts the bundled sample and both corpus projects with the Linux tamrix-cli
# and with tamrix-cli.exe under Wine, and fails unless the new projects are the
# same byte for byte. The only allowed difference: Windows writes the absolute
# paths in the logs with their drive ("Z:/work/..." for "/work/...").
# Usage: scripts/compare-windows.sh [WINDOWS_BUILD] [LINUX_CLI]
set -euo pipefail
cd "$(dirname "$0")/.."
windows_cli="${1:-build-windows}/src/cli/tamrix-cli.exe"
linux_cli="${2:-}"
if [ -z "$linux_cli" ]; then
    for candidate in build/src/cli/tamrix-cli build-nogui/src/cli/tamrix-cli; do
        [ -x "$candidate" ] && linux_cli=$candidate && break
    done
fi
[ -x "$linux_cli" ] || { echo "no Linux tamrix-cli; build it first" >&2; exit 1; }
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" SOURCE_DATE_EPOCH=1700000000
export WINEPREFIX="${WINEPREFIX:-$PWD/build-windows/wine}"
corpus="${TAMRIX_CORPUS_DIR:-$PWD/../shared/corpus}"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# name  project  hpj  options
projects=(
    "tideclock|samples/tideclock/TideClock.hhp|samples/tideclock/TideClock.hpj|--css --popups"
    "draftcable|$corpus/draftcable/Copia de DraftCable.hhp|$corpus/draftcable/DraftCable.hpj|--popups"
    "wavesoap|$corpus/wavesoap/WaveSoap.hhp|$corpus/wavesoap/WaveSoapFront.hpj|--popups --css"
)
failed=0
for entry in "${projects[@]}"; do
    IFS='|' read -r name project hpj options <<<"$entry"
    for system in linux windows; do
        # Both runs write to the same folder, so the logs name the same paths.
        rm -rf "$work/new"
        mkdir -p "$work/new"
        cli=$linux_cli
        runner=()
        [ $system = windows ] && cli=$windows_cli && runner=("$wine")
        # shellcheck disable=SC2086
        "${runner[@]}" "$cli" convert "$project" "$work/new/New.hhp" --hpj "$hpj" $options --yes \
            >"$work/$name-$system.out" 2>&1 || { echo "$name: $system conversion failed" >&2; cat "$work/$name-$system.out" >&2; failed=1; }
        mv "$work/new" "$work/$name-$system"
    done
    sed -i 's#\b[A-Z]:/#/#g' "$work/$name-windows/"*.log
    if diff -r "$work/$name-linux" "$work/$name-windows" >"$work/$name.diff"; then
        echo "$name: Linux and Windows wrote the same $(find "$work/$name-linux" -type f | wc -l) files"
    else
        echo "$name: Linux and Windows outputs differ:" >&2
        head -40 "$work/$name.diff" >&2
        failed=1
    fi
done
exit $failed
