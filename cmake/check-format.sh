#!/usr/bin/env bash
# Says which tracked C++ sources .clang-format would change, and what is doubtful in a script; "--fix" changes the
# sources.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=(--dry-run --Werror)
case "${1:-}" in
    "") ;;
    --fix) mode=(-i) ;;
    *) echo "usage: cmake/check-format.sh [--fix]" >&2; exit 2 ;;
esac

# Run from a git hook, git's own variables would name another tree.
# shellcheck disable=SC2046
unset $(git rev-parse --local-env-vars)
list=$(mktemp)
trap 'rm -f "$list"' EXIT
# A tracked file may be deleted in the working tree: that is no matter of format.
git ls-files -z --deduplicate -- '*.cpp' '*.h' |
    while IFS= read -r -d '' file; do if [ -f "$file" ]; then printf '%s\0' "$file"; fi; done > "$list"
if [ ! -s "$list" ]; then
    echo "check-format: git lists no C++ sources here" >&2
    exit 1
fi
if ! xargs -0 -r -n 20 -P "$(nproc)" clang-format "${mode[@]}" < "$list"; then
    echo "check-format: run cmake/check-format.sh --fix" >&2
    exit 1
fi
# As a list of files, since scripts bear no ending.
git grep -lz --cached -E '^#!.*bash' | xargs -0 -r shellcheck -x
