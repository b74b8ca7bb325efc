#!/usr/bin/env bash
# Starts the server and the services of the prepared Wine prefix afresh, on the display that the caller has. They stay
# for an hour.
#
#   cmake/start-wine.sh
#
# The prefix is $WINEPREFIX (default: ~/.cache/velmo/wine).
set -euo pipefail

export WINEPREFIX=${WINEPREFIX:-$HOME/.cache/velmo/wine}
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml="

wineserver -k || true
wineserver -w
wineserver -p3600 < /dev/null > /dev/null 2>&1
# The first program starts the services. They keep its standard error: were it a test's, its runner would wait for them.
# They keep its display too: had it none, a test's windows would wait for ever to be shown.
wine reg query 'HKCU\Software\Wine' < /dev/null > /dev/null 2>&1
