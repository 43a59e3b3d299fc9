#!/usr/bin/env bash
# Measures the logger beside another one: logging.sh [ROUNDS]
#
# Builds in build/bench-linux. The log files go to TMPDIR, or /tmp: a slow disk there hides the difference, at the start
# above all. TMPDIR=/dev/shm leaves the disk out; a round needs 150 MB there.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$root/build/bench-linux"
cd "$root"

scripts/setup.sh build bench
cmake --preset linux -B "$build" -DCMAKE_BUILD_TYPE=Release -DOVRIN_BENCH=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build "$build" --target LoggingBench >/dev/null
unset OVRIN_LOG_LEVELS
"$build/bin/LoggingBench" "${1:-5}"
