#!/usr/bin/env bash
# Runs a command on a virtual display of its own, with a window manager: display.sh COMMAND [ARGUMENT...]
#
# Takes a free display number, starts the command when both are ready, and ends with the command's exit code. Only
# what was started here is ended. With OVRIN_WINDOW_MANAGER=none there is no window manager.
set -euo pipefail

readonly ready_seconds=60

x_server=""
window_manager=""
folder="$(mktemp -d)"

end_process() {
    if [[ -n "$1" ]]; then
        kill "$1" 2>/dev/null || true
        wait "$1" 2>/dev/null || true
    fi
}

clean_up() {
    end_process "$window_manager"
    end_process "$x_server"
    rm -rf "$folder"
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

fail() {
    echo "display.sh: $1" >&2
    cat "$folder/log" >&2
    exit 1
}

mkfifo "$folder/display" "$folder/window-manager"
# Opened for both directions, so that neither side waits for the other to open.
exec 8<>"$folder/display" 9<>"$folder/window-manager"

# The server chooses the number and writes it once it listens.
Xvfb -displayfd 8 -screen 0 1600x1000x24 -nolisten tcp >"$folder/log" 2>&1 9>&- &
x_server=$!
read -r -t "$ready_seconds" number <&8 || fail "no virtual display came up"

unset WAYLAND_DISPLAY
export DISPLAY=":$number"

if [[ "${OVRIN_WINDOW_MANAGER:-}" != none ]]; then
    # The system's own settings, whatever the user's are: tests rely on the usual keys.
    openbox --sm-disable --config-file /etc/xdg/openbox/rc.xml \
        --startup "sh -c 'echo ready >\"$folder/window-manager\"'" >>"$folder/log" 2>&1 8>&- 9>&- &
    window_manager=$!
    read -r -t "$ready_seconds" _ <&9 || fail "the window manager did not start"
fi
exec 8>&- 9>&-

code=0
"$@" || code=$?
exit "$code"
