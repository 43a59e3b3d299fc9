#!/usr/bin/env bash
# Measures the launcher's start beside the barest window of the platform, and with a recent-projects list of 5,000 lines
# beside its start with none: startup.sh [linux|windows] [ROUNDS]
#
# Builds in build/bench-<preset>, and runs on a virtual display of its own without a window manager, whose frames and
# placing would be measured too.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset="${1:-linux}"
rounds="${2:-15}"
if [[ "$preset" != linux && "$preset" != windows ]]; then
    echo "usage: bench/startup.sh [linux|windows] [ROUNDS]" >&2
    exit 2
fi
bin="$(bench/build.sh "$preset" OvrinLauncher BareWindow)"

home="$(mktemp -d)"
trap 'rm -rf "$home"' EXIT
export HOME="$home" USERPROFILE="$home" APPDATA="$home" LOCALAPPDATA="$home" QT_QPA_PLATFORM=xcb
unset XDG_CONFIG_HOME XDG_DATA_HOME

# Each project exists: none is dropped, so that every start finds the same list.
make_settings() {
    local programs_home="$1" number
    mkdir "$home/empty" "$home/long" "$home/projects"
    seq --format "$home/projects/%g.oproject" 5000 | xargs touch
    for number in {1..5000}; do
        printf '"%s/projects/%s.oproject" "Game %s"\n' "$programs_home" "$number" "$number"
    done >"$home/long/recent_projects.cfg"
}

on_bare_display=(env OVRIN_WINDOW_MANAGER=none scripts/display.sh)
if [[ "$preset" == windows ]]; then
    make_settings "Z:$home"
    # shellcheck disable=SC2016 # the inner shell expands it, once the loader's name is known
    "${on_bare_display[@]}" scripts/wine.sh --environment sh -c \
        'exec python3 "$0" "$1" "$WINELOADER $2/OvrinLauncher.exe" "$WINELOADER $2/BareWindow.exe" "$3" "$4"' \
        bench/startup.py "$rounds" "$bin" "Z:$home/empty" "Z:$home/long"
else
    make_settings "$home"
    "${on_bare_display[@]}" python3 bench/startup.py "$rounds" "$bin/OvrinLauncher" "$bin/BareWindow" \
        "$home/empty" "$home/long"
fi
