#!/usr/bin/env bash
# Measures a whole repaint of the launcher's window beside the same picture drawn with the toolkit alone:
# painting.sh [ROUNDS]
#
# Builds in build/bench-linux. With OVRIN_BENCH_PICTURES set to a folder, both pictures are left there.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$root/build/bench-linux"
cd "$root"

scripts/setup.sh build desktop bench
cmake --preset linux -B "$build" -DCMAKE_BUILD_TYPE=Release -DOVRIN_BENCH=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build "$build" --target PaintingBench >/dev/null
"$build/bin/PaintingBench" "${1:-5}"
