#!/usr/bin/env bash
# Lists every C++ file that clang-format would change and fails if there is one.
# scripts/format.sh rewrites them.
set -euo pipefail
cd "$(dirname "$0")/.."
clang_format=${CLANG_FORMAT:-clang-format-14}
differing=()
while IFS= read -r file; do
    "$clang_format" --style=file "$file" | cmp -s - "$file" || differing+=("$file")
done < <(scripts/format-files.sh)
if [ ${#differing[@]} -gt 0 ]; then
    printf '%s\n' "${differing[@]}"
    echo "${#differing[@]} files differ from .clang-format; run scripts/format.sh" >&2
    exit 1
fi
echo "Formatting: every file matches .clang-format"
