#!/usr/bin/env bash
# Builds the static wxWidgets that the "windows" preset links; windows-library.sh says how, and what it can be asked.
set -euo pipefail

name=wxwidgets
native=libwxgtk3.2-dev
source=wxwidgets3.2
proof=bin/wx-config
duration="about 8 minutes"
options=(
    --without-libpng --without-libjpeg --without-libtiff --without-zlib --without-expat
    --without-regex --disable-xrc --disable-richtext --disable-stc --disable-ribbon --disable-propgrid --disable-aui
    --disable-mediactrl --disable-svg --enable-html --enable-accessibility --enable-webview --disable-debug_flag
)
flags="-Os -g0"

# Debian's patches are for its own ports.
unpack()
{
    mkdir source
    tar -xf wxwidgets3.2_*.orig.tar.* -C source --strip-components=1
}

# shellcheck source=cmake/windows-library.sh
. "$(dirname "$0")/windows-library.sh"
