#!/usr/bin/env bash
# Measures the recent-projects list: recent.sh [ROUNDS]
#
# Builds in build/bench-linux. The list and 100,000 projects go to TMPDIR, or /tmp; a save waits there for the disk.
# TMPDIR=/dev/shm leaves the disk out.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
bin="$(bench/build.sh linux RecentListBench)"
"$bin/RecentListBench" "${1:-5}"
