#!/usr/bin/env bash
# Builds programs of this folder or the launcher, optimised, and prints the folder that they are in:
# build.sh PRESET TARGET...
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset="$1"
shift
build="build/bench-$preset"
tools=(build desktop bench)
if [[ "$preset" == windows ]]; then
    tools+=(windows)
fi

mkdir -p build
if ! {
    scripts/setup.sh "${tools[@]}" &&
        cmake --preset "$preset" -B "$build" -DCMAKE_BUILD_TYPE=Release -DOVRIN_BENCH=ON -DBUILD_TESTING=OFF &&
        cmake --build "$build" --target "$@"
} >"$build.log"; then
    cat "$build.log" >&2
    exit 1
fi
echo "$PWD/$build/bin"
