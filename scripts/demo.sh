#!/usr/bin/env bash
# Creates a project in the launcher by real mouse and keyboard input on the present display: demo.sh LAUNCHER
#
# Everything is written to a temporary home folder; the screenshot stays in build/launcher.png.
set -euo pipefail

readonly launcher="$1"
readonly wait_seconds=30
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
screenshot="$root/build/launcher.png"
home="$(mktemp -d)"
process=""

clean_up() {
    if [[ -n "$process" ]]; then
        kill "$process" 2>/dev/null || true
    fi
    rm -rf "$home"
}
trap clean_up EXIT

# Asks again until the command succeeds; only something broken reaches the limit.
wait_until() {
    local what="$1" end=$((SECONDS + wait_seconds))
    shift
    until "$@"; do
        if ((SECONDS >= end)); then
            echo "demo: gave up waiting for $what" >&2
            return 1
        fi
        sleep 0.05
    done
}

find_window() {
    window="$(xdotool search --onlyvisible --name '^OvrinEngine Launcher$' 2>/dev/null)"
}

# In client pixels.
click() {
    xdotool mousemove --window "$window" "$1" "$2" click 1
}

take_picture() {
    import -window "$window" "$screenshot"
}

# The picture has changed since the last one kept, and has stopped changing.
is_settled() {
    local earlier
    earlier="$(sum_of_picture)"
    take_picture
    [[ "$(sum_of_picture)" == "$earlier" && "$earlier" != "$before" ]]
}

sum_of_picture() {
    identify -format '%#' "$screenshot" 2>/dev/null || true
}

editor_has_reported() {
    grep --quiet '^Command line: ' "$OVRIN_EDITOR_LOG" 2>/dev/null
}

has_ended() {
    ! kill -0 "$process" 2>/dev/null
}

unset XDG_CONFIG_HOME XDG_DATA_HOME USERPROFILE APPDATA LOCALAPPDATA OVRIN_USER_SETTINGS_DIR
export HOME="$home" QT_QPA_PLATFORM=xcb
export OVRIN_EDITOR_LOG="$home/editor.log"
"$launcher" >/dev/null & # the editor inherits its output, and reports to the log as well
process=$!
wait_until "the launcher's window" find_window

click 1006 151 # the template selector
click 1006 240 # its second row
click 453 151  # the name
take_picture
before="$(sum_of_picture)"
xdotool type "My First Game"
wait_until "the typed name" is_settled

click 1066 237 # Create Project
wait_until "the editor" editor_has_reported
wait_until "the launcher's end" has_ended
code=0
wait "$process" || code=$?
process=""

echo
echo "The launcher ended with exit code $code and left:"
(cd "$home" && find Documents)
echo "The editor's report:"
sed 's/^/    /' "$OVRIN_EDITOR_LOG"
echo "Screenshot: $screenshot"
exit "$code"
