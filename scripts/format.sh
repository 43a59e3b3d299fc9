#!/usr/bin/env bash
# Formats our C++ sources; with --check changes nothing and fails if one would change.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/setup.sh checks

mapfile -d '' -t sources < <(find bench core examples fuzz launcher platform tests \
    \( -name '*.cpp' -o -name '*.h' \) -print0 | sort --zero-terminated)

case "${1:-}" in
"")
    clang-format -i "${sources[@]}"
    ;;
--check)
    if ! clang-format --dry-run --Werror "${sources[@]}"; then
        echo "Repair with: scripts/format.sh" >&2
        exit 1
    fi
    echo "${#sources[@]} files are formatted"
    ;;
*)
    echo "usage: scripts/format.sh [--check]" >&2
    exit 2
    ;;
esac
