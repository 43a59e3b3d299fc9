#!/usr/bin/env bash
# Installs what is missing of the named groups of Debian packages: setup.sh [build] [desktop] [windows] [checks] ...
#
# Asks nothing. What can't be installed is named in one line each and the rest goes on; with CI set that is an error.
set -euo pipefail

declare -A groups=(
    [build]="g++ cmake ninja-build googletest"
    [desktop]="qt6-base-dev fonts-open-sans xvfb openbox xdotool xclip x11-utils imagemagick"
    [windows]="g++-mingw-w64-x86-64-posix wine64"
    [checks]="clang-format clang-tidy shellcheck"
    [fuzz]="clang"
    [bench]="libx11-dev libspdlog-dev python3"
    [icon]="librsvg2-bin python3"
)

is_installed() {
    [[ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" == installed ]]
}

list_missing() {
    local group package
    for group in "$@"; do
        for package in ${groups[$group]:?"no such group: $group"}; do
            is_installed "$package" || echo "$package"
        done
    done
}

as_root() {
    if [[ "$(id -u)" == 0 ]]; then
        "$@"
    else
        # Without a password at hand this fails instead of asking.
        sudo --non-interactive "$@"
    fi
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get --quiet --quiet --yes "$@" >/dev/null
}

# All in one go; where that fails, one by one, so that a single bad package keeps no other out.
install_packages() {
    apt_get update || true
    apt_get install --no-install-recommends "$@" && return
    local package
    for package in "$@"; do
        apt_get install --no-install-recommends "$package" || true
    done
}

if ! command -v dpkg-query apt-get >/dev/null; then
    echo "setup: no apt here; the packages of the groups \"$*\" have to be there already (README.md lists them)" >&2
    exit 0
fi

mapfile -t missing < <(list_missing "$@" | sort --unique)
if ((${#missing[@]} == 0)); then
    exit 0
fi

echo "setup: installing ${missing[*]}"
install_packages "${missing[@]}"

mapfile -t missing < <(list_missing "$@" | sort --unique)
for package in "${missing[@]}"; do
    echo "setup: not installed: $package (by hand: sudo apt-get install $package)" >&2
done
if ((${#missing[@]} != 0)) && [[ -n "${CI:-}" ]]; then
    exit 1
fi
