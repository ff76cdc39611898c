#!/usr/bin/env bash
# Times tamrix-cli convert against a plain `cp -r` of the same project for
# several project sizes and writes bench/RESULTS.md.
#
#   bench/run.sh [SIZES...]          (default: 1000 10000 30000)
#   bench/run.sh --popups-only       only the large-popup table, replaced in RESULTS.md
#
# Every run also converts projects with one popup of POPUP_SIZES links and one of
# as many images (default: 100000 1000000), and checks that no input changed.
#
# Environment: BUILD (default build-rel), WORK (default /tmp/tamrix-bench; a
# fresh folder under it is used and removed at the end unless KEEP_WORK=1),
# RUNS (default 3), SEED (default 1), NOTES (text appended to the results,
# default bench/NOTES.md when present), SYSCALL_SIZES (the sizes whose system
# calls strace counts, default every size measured).
set -euo pipefail

here="$(cd "$(dirname "$0")" && pwd)"
root="$(dirname "$here")"
build="${BUILD:-$root/build-rel}"
work="${WORK:-/tmp/tamrix-bench}"
runs="${RUNS:-3}"
seed="${SEED:-1}"
popups_only=0
if [ "${1:-}" = "--popups-only" ]; then popups_only=1; shift; fi
sizes=("$@")
[ ${#sizes[@]} -gt 0 ] || sizes=(1000 10000 30000)
read -r -a popup_sizes <<<"${POPUP_SIZES:-100000 1000000}"
cli="$build/src/cli/tamrix-cli"
[ -x "$cli" ] || cli="$(find "$build" -name tamrix-cli -type f -perm -u+x | head -n 1)"
[ -x "$cli" ] || { echo "tamrix-cli not found under $build" >&2; exit 2; }

if [ ! -x /usr/bin/time ]; then
    echo "Installing GNU time for peak memory" >&2
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq && apt-get install -y -qq time >/dev/null
fi

# Every run writes into a folder of its own and nothing is deleted until the end:
# on a file system without a journal, creating files right after many were
# deleted is slow (the allocator passes over recently freed inodes), which
# would charge the cost of the cleanup to the next measurement.
work="$work/run-$(date +%Y%m%d-%H%M%S)-$$"
mkdir -p "$work"
# KEEP_WORK=1 leaves the folder for the caller to remove, so that a second run
# right after this one is not slowed by the deletion.
[ "${KEEP_WORK:-0}" = 1 ] || trap 'rm -rf "$work"' EXIT
now_ns() { date +%s%N; }
median() { sort -g | awk '{ v[NR] = $1 } END { print (NR % 2) ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2 }'; }
max() { sort -g | tail -n 1; }
checksum() { (cd "$1" && find . -type f -print0 | sort -z | xargs -0 md5sum | md5sum); }
# Converts SRC into OUT (label for messages): sets t0 and t1 (ns), leaves
# "peak-KiB user-s system-s" in $work/rss, and fails when the input changed.
convert_once() {
    local src="$1" out="$2" label="$3" sum
    sum="$(checksum "$src")"
    mkdir -p "$out"
    t0=$(now_ns)
    /usr/bin/time -f '%M %U %S' -o "$work/rss" \
        "$cli" convert "$src/Bench.hhp" "$out/Bench.hhp" --hpj "$src/Bench.hpj" \
        --popups --yes --quiet >"$work/convert.out" 2>&1 \
        || { echo "convert failed ($label):" >&2; cat "$work/convert.out" >&2; exit 1; }
    t1=$(now_ns)
    [ "$(checksum "$src")" = "$sum" ] || { echo "the input changed ($label)" >&2; exit 1; }
}

# One conversion of a project whose popups hold K links and K images each.
popup_rows=()
for k in "${popup_sizes[@]}"; do
    src="$work/popups-$k" out="$work/popups-out-$k"
    echo "popups of $k links and images: generating" >&2
    python3 "$here/make_project.py" "$src" 100 "$seed" "$k"
    convert_once "$src" "$out" "popups $k"
    sizes_mib="$(find "$src/html" -name 'popu*.htm' -printf '%s\n' | sort -g | tail -n 2 | awk '{ printf "%s%.1f", (NR > 1 ? " / " : ""), $1 / 1048576 }')"
    popup_rows+=("$(awk -v k="$k" -v s="$sizes_mib" -v a="$t0" -v b="$t1" -v r="$(cat "$work/rss")" 'BEGIN {
        split(r, f, " "); printf "| %d | %s | %.2f | %.2f | %.1f |", k, s, (b - a) / 1e9, f[2] + f[3], f[1] / 1024 }')")
    echo "${popup_rows[-1]}" >&2
done
popup_table() {
    echo "## Large popups"
    echo
    echo "One conversion of a 100-topic project (\`make_project.py DIR 100 $seed K\`) whose first popup"
    echo "holds K links and whose second holds K images, both called by links and by map IDs,"
    echo "so each is cleaned for popups.js and for cshelp.txt. The input is checked unchanged afterwards."
    echo
    echo "| K | popup files MiB (links / images) | convert s | CPU s | peak RSS MiB |"
    echo "|---:|---|---:|---:|---:|"
    printf '%s\n' "${popup_rows[@]}"
}
if [ "$popups_only" = 1 ]; then
    results="$here/RESULTS.md"
    { sed '/^## Large popups/,$d' "$results"; popup_table; } >"$results.new"
    mv "$results.new" "$results"
    popup_table
    exit 0
fi

build_type="$(sed -n 's/^CMAKE_BUILD_TYPE:STRING=//p' "$build/CMakeCache.txt" 2>/dev/null || true)"
load_before="$(cut -d' ' -f1-3 /proc/loadavg)"
rows=() floor_rows=()
for n in "${sizes[@]}"; do
    src="$work/in-$n"
    echo "N=$n: generating" >&2
    python3 "$here/make_project.py" "$src" "$n" "$seed"
    topics="$(find "$src/html" -name '*.htm' | wc -l)"
    conv_times=() copy_times=() out_times=() rss=() cpu=()
    for ((r = 1; r <= runs; r++)); do
        convert_once "$src" "$work/out-$n-$r" "N=$n"
        conv_times+=("$(awk -v a="$t0" -v b="$t1" 'BEGIN { printf "%.4f", (b - a) / 1e9 }')")
        rss+=("$(tail -n 1 "$work/rss" | cut -d' ' -f1)")
        cpu+=("$(tail -n 1 "$work/rss" | awk '{ print $2 + $3 }')")

        t0=$(now_ns)
        cp -r "$src" "$work/copy-$n-$r"
        t1=$(now_ns)
        copy_times+=("$(awk -v a="$t0" -v b="$t1" 'BEGIN { printf "%.4f", (b - a) / 1e9 }')")
        # The floor under any tool that writes this output: copying the output itself.
        t0=$(now_ns)
        cp -r "$work/out-$n-1" "$work/out-copy-$n-$r"
        t1=$(now_ns)
        out_times+=("$(awk -v a="$t0" -v b="$t1" 'BEGIN { printf "%.4f", (b - a) / 1e9 }')")
        echo "N=$n run $r: convert ${conv_times[-1]} s (CPU ${cpu[-1]} s), copy ${copy_times[-1]} s, copy of the output ${out_times[-1]} s, ${rss[-1]} KiB" >&2
    done
    conv="$(printf '%s\n' "${conv_times[@]}" | median)"
    copy="$(printf '%s\n' "${copy_times[@]}" | median)"
    peak="$(printf '%s\n' "${rss[@]}" | max)"
    cpus="$(printf '%s\n' "${cpu[@]}" | median)"
    out_copy="$(printf '%s\n' "${out_times[@]}" | median)"
    out_files="$(find "$work/out-$n-1" -type f | wc -l)"
    out_bytes="$(find "$work/out-$n-1" -type f -printf '%s\n' | awk '{ s += $1 } END { print s }')"
    floor_rows+=("$(awk -v n="$n" -v f="$out_files" -v b="$out_bytes" -v o="$out_copy" -v p="$copy" -v c="$conv" 'BEGIN {
        printf "| %d | %d | %.1f | %.3f | %.3f | %.2f | %.2f |", n, f, b / 1048576, o, p, o / p, c / o }')")
    size="$(du -sk "$src" | cut -f1)"
    # What the files hold, without the blocks a file system rounds each one up to.
    bytes="$(find "$src" -type f -printf '%s\n' | awk '{ s += $1 } END { print s }')"
    rows+=("$(awk -v n="$n" -v t="$topics" -v c="$conv" -v p="$copy" -v m="$peak" -v s="$size" -v u="$cpus" -v b="$bytes" 'BEGIN {
        printf "| %d | %d | %.1f | %.3f | %.3f | %.2f | %.3f | %.2f | %.3f | %.1f | %.1f | %.2f |", n, t, s / 1024, c, p, c / p, 1000 * c / t, u, 1000 * u / t, m / 1024, b / 1048576, m * 1024 / b }')")
done
load_after="$(cut -d' ' -f1-3 /proc/loadavg)"

# What each tool asks of the file system at the smallest size (untimed).
fs_ops=""
syscall_rows=()
if command -v strace >/dev/null; then
    n="${sizes[0]}" src="$work/in-${sizes[0]}"
    count_ops() {  # label, command...
        local label="$1"; shift
        strace -f -qq -e trace=openat,rename,link,linkat,unlink,unlinkat -o "$work/ops" "$@" \
            >/dev/null 2>&1 || true
        # An unnamed file (O_TMPFILE) counts as created; linking it in names it. A
        # call that another thread interrupted shows again as "resumed": once is enough.
        awk -v label="$label" -v n="$n" '
            /resumed>/ { next }
            /O_CREAT|O_TMPFILE/ { created++ } /openat/ && !/O_CREAT|O_TMPFILE/ { opened++ }
            /rename\(/ { renamed++ } /link(at)?\(/ && !/unlink/ { linked++ } /unlink/ { unlinked++ }
            END { printf "| %s | %.2f | %.2f | %.2f | %.2f | %.2f |\n", label, opened / n,
                         created / n, linked / n, renamed / n, unlinked / n }' "$work/ops"
    }
    mkdir -p "$work/ops-out"
    fs_ops="$(count_ops convert "$cli" convert "$src/Bench.hhp" "$work/ops-out/Bench.hhp" \
                  --hpj "$src/Bench.hpj" --popups --yes --quiet
              count_ops "cp -r" cp -r "$src" "$work/ops-copy")"
    # Every system call of both tools, per topic file.
    read -r -a syscall_sizes <<<"${SYSCALL_SIZES:-${sizes[*]}}"
    for n in "${syscall_sizes[@]}"; do
        src="$work/in-$n"
        [ -d "$src" ] || continue
        count_calls() {
            strace -f -c -o "$work/calls" "$@" >/dev/null 2>&1 || true
            awk -v n="$n" '$NF == "total" { printf "%.1f", $(NF - 2) / n }' "$work/calls"
        }
        mkdir -p "$work/calls-out-$n"
        conv_calls="$(count_calls "$cli" convert "$src/Bench.hhp" "$work/calls-out-$n/Bench.hhp" \
                          --hpj "$src/Bench.hpj" --popups --yes --quiet)"
        copy_calls="$(count_calls cp -r "$src" "$work/calls-copy-$n")"
        syscall_rows+=("| $n | $conv_calls | $copy_calls |")
    done
fi

# Time per topic at the largest size over that at the smallest.
first="${rows[0]}" last="${rows[-1]}"
per_first="$(echo "$first" | awk -F'|' '{ print $8 }')"
per_last="$(echo "$last" | awk -F'|' '{ print $8 }')"
growth="$(awk -v a="$per_first" -v b="$per_last" 'BEGIN { printf "%.2f", b / a }')"
cpu_growth="$(awk -F'|' 'NR == 1 { a = $10 } { b = $10 } END { printf "%.2f", b / a }' < <(printf '%s\n' "${rows[@]}"))"
worst_ratio="$(printf '%s\n' "${rows[@]}" | awk -F'|' '$7 > w { w = $7 } END { printf "%.2f", w }')"
worst_memory="$(printf '%s\n' "${rows[@]}" | awk -F'|' '$13 > w { w = $13 } END { printf "%.2f", w }')"
worst_disk_memory="$(printf '%s\n' "${rows[@]}" | awk -F'|' '$11 / $4 > w { w = $11 / $4 } END { printf "%.2f", w }')"
# The program's own peak RSS when it reads no project: code, libraries, allocator.
startup_kib="$(for _ in 1 2 3; do /usr/bin/time -f '%M' "$cli" --version 2>&1 >/dev/null | tail -n 1; done | max)"
worst_added_memory="$(printf '%s\n' "${rows[@]}" | awk -F'|' -v s="$startup_kib" '($11 - s / 1024) / $4 > w { w = ($11 - s / 1024) / $4 } END { printf "%.2f", w }')"
verdict() { awk -v v="$1" -v l="$2" 'BEGIN { print (v <= l) ? "met" : "not met" }'; }

cpu="$(sed -n 's/^model name[[:space:]]*: //p' /proc/cpuinfo | head -n 1)"
mem="$(awk '/^MemTotal/ { printf "%.1f GiB", $2 / 1048576 }' /proc/meminfo)"
disk="$(df -hT "$work" | awk 'NR == 2 { print $2 " file system on " $1 ", " $3 " total" }')"
{
    echo "# Benchmark results"
    echo
    echo "Written by \`bench/run.sh\` on $(date -u '+%Y-%m-%d %H:%M UTC')."
    echo
    echo "- Machine: $(nproc) CPUs ($cpu), $mem memory"
    echo "- Work folder: \`$work\` ($disk)"
    echo "- Build: ${build_type:-unknown} (\`$(basename "$build")\`), $("$cli" --version 2>/dev/null | head -n 1)"
    echo "- Load average (1, 5, 15 min) before: $load_before; after: $load_after"
    echo "- Command: \`tamrix-cli convert OLD.hhp NEW.hhp --hpj OLD.hpj --popups --yes --quiet\` into a fresh folder;"
    echo "  copy: \`cp -r\` of the input project folder into a fresh folder. Median of $runs runs each; peak RSS is the largest of the conversion runs;"
    echo "  CPU is user + system time of the conversion (median), which other load on the machine disturbs less than elapsed time."
    echo
    echo "| N | topic files | input MiB on disk | convert s | copy s | convert/copy | ms per topic | convert CPU s | CPU ms per topic | peak RSS MiB | input MiB of content | peak RSS / content |"
    echo "|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|"
    printf '%s\n' "${rows[@]}"
    echo
    echo "- Elapsed time per topic at N=${sizes[-1]} over N=${sizes[0]}: $growth (goal at most 1.2: $(verdict "$growth" 1.2)); CPU time per topic: $cpu_growth."
    echo "- Largest convert/copy ratio: $worst_ratio (goal at most 2: $(verdict "$worst_ratio" 2))."
    echo "- Largest peak RSS over the input's size on disk: $worst_disk_memory (goal at most 2: $(verdict "$worst_disk_memory" 2)); over what its files hold: $worst_memory."
    echo "- The program's peak RSS when it reads no project (\`tamrix-cli --version\`): $(awk -v s="$startup_kib" 'BEGIN { printf "%.1f", s / 1024 }') MiB; the largest peak RSS less that, over the input's size on disk: $worst_added_memory."
    echo
    echo "The floor: \`cp -r\` of one conversion's output (the new project, with \`NoPopups\`), timed in the same runs:"
    echo
    echo "| N | output files | output MiB of content | copy of the output s | copy of the input s | output copy / input copy | convert / output copy |"
    echo "|---:|---:|---:|---:|---:|---:|---:|"
    printf '%s\n' "${floor_rows[@]}"
    if [ -n "$fs_ops" ]; then
        echo
        echo "File-system calls per topic file at N=${sizes[0]} (strace; files opened for reading, files created, names given by a link, renames, deletions):"
        echo
        echo "| tool | opened | created | linked | renamed | deleted |"
        echo "|---|---:|---:|---:|---:|---:|"
        echo "$fs_ops"
    fi
    if [ ${#syscall_rows[@]} -gt 0 ]; then
        echo
        echo "System calls per topic file (\`strace -f -c\`, every call of the process, goal at most 15 for convert):"
        echo
        echo "| N | convert | cp -r |"
        echo "|---:|---:|---:|"
        printf '%s\n' "${syscall_rows[@]}"
    fi
    notes="${NOTES:-$here/NOTES.md}"
    if [ -f "$notes" ]; then
        echo
        cat "$notes"
    fi
    echo
    popup_table
} >"$here/RESULTS.md"
cat "$here/RESULTS.md"
