#!/usr/bin/env bash
# Builds everything and runs all the tests, for Linux, for Linux with sanitizers, and for Windows under Wine. Under the
# thread sanitizer only what has several threads is run.
#
# test.sh [--quick]: --quick leaves out Windows. What a machine lacks is left out and named in the summary; with CI set
# anything left out is an error.
set -uo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1

quick=no
case "${1:-}" in
"") ;;
--quick) quick=yes ;;
*)
    echo "usage: scripts/test.sh [--quick]" >&2
    exit 2
    ;;
esac

summary=()
failed=no
skipped=no

note_failure() {
    summary+=("FAILED   $1")
    failed=yes
}

note_skip() {
    summary+=("skipped  $1")
    skipped=yes
}

# The tests that found no ground to stand on, from the log that CTest keeps.
note_skipped_tests() {
    local name
    while read -r name; do
        note_skip "$1: $name"
    done < <(sed -n 's/^\[  SKIPPED \] \([^ ]*\) (.*/\1/p' "build/$1/Testing/Temporary/LastTest.log" | sort --unique)
}

build() {
    cmake --preset "$1" -DBUILD_TESTING=ON >"build/$1.configure.log" 2>&1 || {
        cat "build/$1.configure.log"
        return 1
    }
    grep 'left out' "build/$1.configure.log"
    cmake --build --preset "$@" -- -j2
}

# run_preset PRESET [TEST...]: all tests, or those that are named as their programs.
run_preset() {
    local preset="$1" start=$SECONDS tests=("${@:2}") targets=() only=()
    if ((${#tests[@]} > 0)); then
        targets=(--target "${tests[@]}")
        only=(-R "^($(IFS='|' && echo "${tests[*]}"))\$")
    fi
    echo "== $preset"
    if ! build "$preset" "${targets[@]}"; then
        note_failure "$preset: build"
        return
    fi
    if ctest --preset "$preset" -j2 "${only[@]}"; then
        summary+=("passed   $preset ($((SECONDS - start)) s)")
    else
        note_failure "$preset: tests"
    fi
    note_skipped_tests "$preset"
    if grep --quiet 'left out' "build/$preset.configure.log"; then
        note_skip "$preset: $(grep -h 'left out' "build/$preset.configure.log" | sed 's/^-- //')"
    fi
}

groups=(build desktop)
[[ "$quick" == yes ]] || groups+=(windows)
scripts/setup.sh "${groups[@]}" || failed=yes

# One virtual display for the whole run: Wine's server would otherwise carry one that has gone into the next tests.
if [[ -z "${OVRIN_TEST_DISPLAY:-}" ]] && command -v Xvfb openbox >/dev/null; then
    OVRIN_TEST_DISPLAY=yes exec scripts/display.sh scripts/test.sh "$@"
fi

mkdir -p build
unset QT_QPA_PLATFORM
run_preset linux
run_preset linux-asan
run_preset linux-tsan logging_tests logging_stress
if [[ "$quick" == yes ]]; then
    summary+=("left out windows (--quick)")
elif ! command -v x86_64-w64-mingw32-g++-posix >/dev/null; then
    note_skip "windows: no MinGW-w64 compiler"
elif ! scripts/wine.sh cmd /c exit; then
    build windows || note_failure "windows: build"
    note_skip "windows: tests (no Wine)"
else
    run_preset windows
fi

if [[ -n "${CI:-}" && "$skipped" == yes ]]; then
    summary+=("FAILED   something was skipped, and CI is set")
    failed=yes
fi

echo
echo "== Summary ($SECONDS s)"
printf '%s\n' "${summary[@]}"
[[ "$failed" == no ]]
