# Sourced by the scripts of this folder: goes to the root of the project, and defines what the scripts share.
# shellcheck shell=bash
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# install_missing PACKAGE...: installs those Debian packages that are missing; prints nothing when none is.
install_missing() {
    local missing=() package
    for package in "$@"; do
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)" != installed ]; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -eq 0 ] && return
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    echo "Installing ${missing[*]}"
    "${as_root[@]}" apt-get -qq update
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -qq -o Dpkg::Use-Pty=0 install --no-install-recommends "${missing[@]}" >/dev/null
}

# quietly COMMAND...: runs it, and shows what it printed only when it fails.
quietly() {
    local output
    if ! output=$("$@" 2>&1); then
        printf '%s\n' "$output" >&2
        return 1
    fi
}

# What is needed to build the tests and to pass them.
# shellcheck disable=SC2034 # used by the scripts that source this one
test_packages=(
    g++ cmake make libgtest-dev libpcap-dev
    acl bsdextrautils gawk miller parallel pv strace zzuf
)
