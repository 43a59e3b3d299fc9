#!/usr/bin/env bash
# Measures the recent-projects list: recent.sh [ROUNDS]
#
# Builds in build/bench-linux. The list and 100,000 projects go to TMPDIR, or /tmp; a save waits there for the disk.
# TMPDIR=/dev/shm leaves the disk out.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$root/build/bench-linux"
cd "$root"

scripts/setup.sh build bench
cmake --preset linux -B "$build" -DCMAKE_BUILD_TYPE=Release -DOVRIN_BENCH=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build "$build" --target RecentListBench >/dev/null
"$build/bin/RecentListBench" "${1:-5}"
