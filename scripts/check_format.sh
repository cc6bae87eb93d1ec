#!/usr/bin/env bash
# Compares every C++ file with .clang-format; "scripts/check_format.sh --fix" rewrites those that differ.

cd "$(dirname "$(readlink -f "$0")")/.." || exit 1

files=()
for folder in src hosts adapters tests bench demo; do
    [ -d $folder ] || continue
    while IFS= read -r file; do files+=("$file"); done < <(find $folder -name '*.h' -o -name '*.cpp' | sort)
done
[ ${#files[@]} -gt 0 ] || exit 0

if [ "${1:-}" = --fix ]; then
    exec clang-format -i "${files[@]}"
fi
clang-format --dry-run -Werror -ferror-limit=1 "${files[@]}"
