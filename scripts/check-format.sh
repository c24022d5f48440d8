#!/usr/bin/env bash
# Fails when a C++ file differs from what clang-format makes of it with the
# project's .clang-format; prints the files. Tables that are aligned by hand
# sit between "clang-format off" and "on" comments.
#   scripts/check-format.sh          every tracked .cpp and .h
#   scripts/check-format.sh --fix    formats them in place
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    mapfile -t files < <(git ls-files '*.cpp' '*.h')
else
    mapfile -t files < <(find . -path ./build\* -prune -o \( -name '*.cpp' -o -name '*.h' \) -print)
fi
if [ "${1:-}" = "--fix" ]; then
    clang-format -i --style=file "${files[@]}"
    exit 0
fi
differing=()
for file in "${files[@]}"; do
    clang-format --style=file "$file" | cmp -s - "$file" || differing+=("$file")
done
if [ ${#differing[@]} -gt 0 ]; then
    printf 'Not formatted (scripts/check-format.sh --fix):\n' >&2
    printf '  %s\n' "${differing[@]}" >&2
    exit 1
fi
echo "${#files[@]} files formatted."
