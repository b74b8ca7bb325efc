#!/usr/bin/env bash
# Builds the static libsodium that the "windows" preset links; windows-library.sh says how, and what it can be asked.
set -euo pipefail

name=libsodium
native=libsodium-dev
source=libsodium
proof=lib/libsodium.a
duration="about a minute"
# What is left out is what nothing here uses: older ciphers and password hashes.
options=(--enable-minimal --disable-dependency-tracking)
flags="-Os -g0 -ffunction-sections -fdata-sections"

# With Debian's patches, which repair what was found since.
unpack()
{
    dpkg-source --no-check -x libsodium_*.dsc source
    autoreconf --force --install source
}

# shellcheck source=cmake/windows-library.sh
. "$(dirname "$0")/windows-library.sh"
