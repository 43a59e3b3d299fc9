#!/usr/bin/env bash
# Measures a whole repaint of the launcher's window beside the same picture drawn with the toolkit alone:
# painting.sh [ROUNDS]
#
# Builds in build/bench-linux. With OVRIN_BENCH_PICTURES set to a folder, both pictures are left there.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
bin="$(bench/build.sh linux PaintingBench)"
"$bin/PaintingBench" "${1:-5}"
