#!/usr/bin/env bash
# Runs a Windows program under 64-bit Wine: wine.sh PROGRAM [ARGUMENT...]
#
# wine.sh --environment COMMAND [ARGUMENT...] runs a command of this system with Wine's environment set instead; the
# variable WINELOADER names Wine itself.
#
# The prefix is the project's own, in build/wine-prefix or where OVRIN_WINE_PREFIX says. It is made on first use, which
# takes about 20 seconds, and kept; of several first users one makes it and the others wait.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
export WINEPREFIX="${OVRIN_WINE_PREFIX:-$root/build/wine-prefix}"
export WINEARCH=win64
export WINEDEBUG="${WINEDEBUG:--all}"
# Neither of the two is needed, and each asks for a download in a dialog.
export WINEDLLOVERRIDES="mscoree,mshtml="

find_wine() {
    local candidate
    for candidate in /usr/lib/wine/wine64 wine64 wine; do
        command -v "$candidate" && return
    done
    echo "wine.sh: no 64-bit Wine found (scripts/setup.sh windows installs it)" >&2
    return 127
}

wine="$(find_wine)"
export WINELOADER="$wine"

# The lock is closed for Wine itself: its server outlives this script and would keep it.
if [[ ! -e "$WINEPREFIX/ready" ]]; then
    mkdir -p "$WINEPREFIX"
    exec 9>"$WINEPREFIX.lock"
    flock 9
    if [[ ! -e "$WINEPREFIX/ready" ]]; then
        "$wine" wineboot --init >/dev/null 2>&1 9>&-
        touch "$WINEPREFIX/ready"
    fi
    exec 9>&-
fi

if [[ "${1:-}" == --environment ]]; then
    shift
    exec "$@"
fi
exec "$wine" "$@"
