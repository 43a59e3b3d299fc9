#!/usr/bin/env bash
# Builds the launcher with the stand-in editor beside it and starts it.
#
# On a machine without a display it starts a virtual one and creates a project there by mouse and keyboard.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
launcher="$root/build/linux/bin/OvrinLauncher"

cd "$root"
scripts/setup.sh build desktop
cmake --preset linux >/dev/null
cmake --build --preset linux --target OvrinLauncher OvrinEditor

if [[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]]; then
    exec "$launcher"
fi
echo "No display here: showing it on a virtual one."
exec scripts/display.sh scripts/demo.sh "$launcher"
