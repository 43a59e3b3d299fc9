#!/usr/bin/env bash
# Runs clang-tidy over our sources as the preset linux compiles them, and shellcheck over the scripts.
#
# lint.sh [WORD...] takes only the sources whose path holds one of the words: lint.sh core/paths
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root"
scripts/setup.sh build desktop checks

words="$(IFS='|' && echo "$*")"
shellcheck --exclude=SC2317 scripts/*.sh bench/*.sh # takes functions that a trap calls for unreachable
cmake --preset linux >/dev/null
cmake --build --preset linux >/dev/null # for the generated headers
run-clang-tidy -quiet -j "$(nproc)" -p build/linux \
    "^$root/(?=(bench|core|examples|fuzz|launcher|platform|tests)/).*($words)" 2>/dev/null
echo "clang-tidy and shellcheck found nothing"
