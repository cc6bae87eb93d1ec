#!/usr/bin/env bash
# Compares every C++ file of the library, its hosts, tests and examples with .clang-format;
# "scripts/check_format.sh --fix" rewrites those that differ.

cd "$(dirname "$(readlink -f "$0")")/.." || exit 1

files=()
for folder in src hosts adapters tests bench demo examples fuzz; do
    [ -d $folder ] || continue
    while IFS= read -r file; do files+=("$file"); done < <(find $folder -name '*.h' -o -name '*.cpp' | sort)
done
[ ${#files[@]} -gt 0 ] || exit 0

if [ "${1:-}" = --fix ]; then
    exec clang-format -i "${files[@]}"
fi
# Texts are compared, because clang-format's own dry run complains about namespaces with umlauts that it leaves as they are.
status=0
for file in "${files[@]}"; do
    clang-format "$file" | diff -u --label "$file" --label "$file, formatted" "$file" - | head -n 20
    [ "${PIPESTATUS[1]}" -eq 0 ] || status=1
done
exit $status
