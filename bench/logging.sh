#!/usr/bin/env bash
# Measures the logger beside another one: logging.sh [ROUNDS]
#
# Builds in build/bench-linux. The log files go to TMPDIR, or /tmp: a slow disk there hides the difference, at the start
# above all. TMPDIR=/dev/shm leaves the disk out; a round needs 150 MB there.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
bin="$(bench/build.sh linux LoggingBench)"
unset OVRIN_LOG_LEVELS
"$bin/LoggingBench" "${1:-5}"
