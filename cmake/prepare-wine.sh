#!/usr/bin/env bash
# Makes the Wine prefix that Windows programs run in here, once, and keeps its server warm for an hour.
#
#   cmake/prepare-wine.sh            for tests: windows appear without a window manager's help
#   cmake/prepare-wine.sh --managed  for people and pictures: windows bear the window manager's frame
#
# The prefix is $WINEPREFIX (default: ~/.cache/velmo/wine, which the "windows" preset names too). Several callers may
# come at once: the first makes it, the others wait.
set -euo pipefail

managed=N
case "${1:-}" in
    "") ;;
    --managed) managed=Y ;;
    *) echo "usage: cmake/prepare-wine.sh [--managed]" >&2; exit 2 ;;
esac

export WINEPREFIX=${WINEPREFIX:-$HOME/.cache/velmo/wine}
export WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml="
unset DISPLAY WAYLAND_DISPLAY

# The mark says which Wine made the prefix and how: another one makes it over, in place.
mark=$WINEPREFIX/velmo-prepared
made="$(wine --version) managed=$managed"
mkdir -p "$WINEPREFIX"
exec 9> "$WINEPREFIX/velmo-lock"
flock 9
# With a server that stays, a process starts in 20 ms and not in 400. It says 2 when one is already there.
wineserver -p3600 < /dev/null > /dev/null 2>&1 9>&- || [ $? -eq 2 ]
if [ "$(cat "$mark" 2> /dev/null)" != "$made" ]; then
    echo "Preparing Wine in $WINEPREFIX (once, under a minute) ..."
    set_value() { wine reg add "$1" /v "$2" /t REG_SZ /d "$3" /f < /dev/null > /dev/null 9>&-; }
    if ! {
        wineboot --init < /dev/null > /dev/null 2>&1 9>&- &&
            # A crash shall end its program at once, with no debugger and no dialog that nobody answers.
            set_value 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' Debugger false &&
            set_value 'HKCU\Software\Wine\X11 Driver' Managed $managed
    }; then
        echo "prepare-wine: Wine could not make its prefix in $WINEPREFIX" >&2
        exit 1
    fi
    echo "$made" > "$mark"
fi
