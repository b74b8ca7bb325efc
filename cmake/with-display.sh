#!/usr/bin/env bash
# Runs a command on an X display of its own (1600x1000, with a window manager) that ends with the command.
#
#   cmake/with-display.sh COMMAND [ARGUMENT...]
#
# The display that the caller sits at is left alone, so that tests neither steal its keyboard nor depend on what lies
# on it; VELMO_USE_DISPLAY=1 uses it all the same, to watch. The exit code is the command's.
set -euo pipefail

if [ $# -eq 0 ]; then
    echo "usage: cmake/with-display.sh COMMAND [ARGUMENT...]" >&2
    exit 2
fi
fail() { echo "with-display: $1" >&2; exit 1; }

# A session's services are neither needed nor wanted: no accessibility bus, no settings daemon, no compositor.
export NO_AT_BRIDGE=1 GTK_A11Y=none GSETTINGS_BACKEND=memory GDK_BACKEND=x11
unset WAYLAND_DISPLAY SESSION_MANAGER

if [ "${VELMO_USE_DISPLAY:-}" = 1 ]; then
    [ -n "${DISPLAY:-}" ] || fail "VELMO_USE_DISPLAY=1, but DISPLAY names none"
    exec "$@"
fi

work=$(mktemp -d)
started=()
# shellcheck disable=SC2317  # called by the trap
cleanup()
{
    # The window manager first: it would complain about a display that goes away.
    for ((i = ${#started[@]} - 1; i >= 0; i--)); do
        kill "${started[i]}" 2> /dev/null || true
        wait "${started[i]}" 2> /dev/null || true
    done
    rm -rf "$work"
}
trap cleanup EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# Own sessions: Ctrl+C reaches the command, and the display outlives it. Should this script be killed outright, the
# kernel ends both.
start() # LOG COMMAND...
{
    local log=$work/$1
    shift
    setsid setpriv --pdeathsig TERM "$@" < /dev/null > "$log" 2>> "$log.err" &
    started+=($!)
}
wait_for() # WHAT PID TEST...
{
    local what=$1 pid=$2
    shift 2
    for ((i = 0; i < 300; i++)); do
        if "$@" > /dev/null 2>&1; then return; fi
        kill -0 "$pid" 2> /dev/null || break
        sleep 0.05
    done
    cat "$work"/*.err >&2
    fail "$what did not start"
}
# shellcheck disable=SC2317  # called by wait_for
managed() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }

start display Xvfb -displayfd 1 -screen 0 1600x1000x24 -nolisten tcp -noreset
wait_for Xvfb "${started[0]}" grep -q '[0-9]' "$work/display"
DISPLAY=:$(tr -d '[:space:]' < "$work/display")
export DISPLAY
start manager openbox --sm-disable
wait_for openbox "${started[1]}" managed

status=0
"$@" || status=$?
exit $status
