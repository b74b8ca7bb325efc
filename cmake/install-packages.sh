#!/usr/bin/env bash
# Installs the Debian packages that a purpose needs and the machine lacks; quick when nothing is missing.
#
#   cmake/install-packages.sh PURPOSE...
#   cmake/install-packages.sh --list PURPOSE...   prints the names and does nothing
#
# Works as root, or with sudo.
set -euo pipefail

declare -A packages=(
    [build]="g++ cmake ninja-build ccache git pkg-config googletest
             libwxgtk3.2-dev libwxgtk-webview3.2-dev libgtk-3-dev libcurl4-openssl-dev
             libcli11-dev libutfcpp-dev nlohmann-json3-dev libcpp-httplib-dev libsodium-dev"
    # The run-time libraries that g++ brings along; named, so that a slimmed machine is put right.
    [sanitize]="libasan8 libubsan1"
    # A display of one's own: windows under test, and pictures of them.
    [display]="xvfb openbox xdotool imagemagick x11-utils fonts-dejavu-core"
    # The cross compiler, what builds wxWidgets and libsodium from their source packages, and Wine with its fonts.
    [windows]="g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev dpkg-dev make xz-utils autoconf automake libtool
               wine wine64 fonts-wine fonts-liberation"
    [format]="clang-format git shellcheck"
    [fuzz]="clang-19 libclang-rt-19-dev"
    # Not installed by ./check and ./demo.
    [bench]="mdbtools-dev"
    [faults]="python3"
)

usage()
{
    echo "usage: cmake/install-packages.sh [--list] PURPOSE..." >&2
    echo "purposes: build sanitize display windows format fuzz bench faults" >&2
    exit 2
}

list=no
if [ "${1:-}" = --list ]; then list=yes; shift; fi
[ $# -gt 0 ] || usage
wanted=()
for purpose in "$@"; do
    [ -n "${packages[$purpose]:-}" ] || usage
    read -r -d '' -a names <<< "${packages[$purpose]}" || true
    wanted+=("${names[@]}")
done
if [ $list = yes ]; then printf '%s\n' "${wanted[@]}" | sort -u; exit 0; fi

if ! command -v dpkg-query > /dev/null || ! command -v apt-get > /dev/null; then
    echo "install-packages: this is no Debian machine; install by hand: ${wanted[*]}" >&2
    exit 1
fi

# dpkg-query fails when it doesn't know one of the names, and still answers for the others.
declare -A installed=()
while read -r name; do installed[$name]=yes; done < <(
    dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${wanted[@]}" 2> /dev/null |
        sed -n 's/^installed //p')
missing=()
for name in "${wanted[@]}"; do
    if [ -z "${installed[$name]:-}" ]; then missing+=("$name"); installed[$name]=asked; fi
done
if [ ${#missing[@]} -eq 0 ]; then exit 0; fi

as_root=(env DEBIAN_FRONTEND=noninteractive)
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo > /dev/null; then
        echo "install-packages: neither root nor sudo; as root: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo "${as_root[@]}")
fi
apt=("${as_root[@]}" apt-get -q -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=600)
update() { "${apt[@]}" update < /dev/null; }
install() { "${apt[@]}" install -y --no-install-recommends "${missing[@]}" < /dev/null; }

echo "Installing Debian packages: ${missing[*]}"
updated=no
# A fresh machine has no package lists at all; a name without a candidate is the sign.
if [ "$(apt-cache policy "${missing[@]}" | grep -c '^  Candidate: [^(]')" -lt ${#missing[@]} ]; then
    update
    updated=yes
fi
if install; then exit 0; fi
if [ $updated = yes ]; then
    echo "install-packages: apt-get could not install: ${missing[*]}" >&2
    exit 1
fi
# Lists of yesterday name files that the registry may have replaced.
update
install
