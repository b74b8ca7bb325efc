# How the pictures of the program's windows are taken: to be sourced by the scripts that take them.
#
#   watch_program LOG COMMAND...   starts it in the background; it ends with the script
#   wait_for SECONDS WHAT TEST...  until the test succeeds; the script fails when the program ends before
#   find_window TITLE              a test: whether such a window is shown; its number is then $window
#   photograph FILE                the window's picture, once the screen stands still
#   wait_for_end                   until the program has ended, with exit code 0
#
# They need a display with a window manager (cmake/with-display.sh).
# shellcheck shell=bash

me=$(basename "$0" .sh)
program_log=
program_pid=
window=

fail()
{
    if [ -s "$program_log" ]; then tail -n 20 "$program_log" >&2; fi
    echo "$me: $1" >&2
    exit 1
}

# shellcheck disable=SC2317  # called by the traps
end_program() { if [ -n "$program_pid" ]; then kill "$program_pid" 2> /dev/null || true; fi; }
trap end_program EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

watch_program() # LOG COMMAND...
{
    program_log=$1
    shift
    setpriv --pdeathsig TERM "$@" < /dev/null > "$program_log" 2>&1 &
    program_pid=$!
}
running() { kill -0 "$program_pid" 2> /dev/null; }

wait_for() # SECONDS WHAT TEST...
{
    local seconds=$1 what=$2
    shift 2
    for ((i = 0; i < seconds * 5; i++)); do
        if "$@"; then return; fi
        running || fail "the program ended before $what"
        sleep 0.2
    done
    fail "not within $seconds s: $what"
}

# shellcheck disable=SC2317  # called by wait_for
find_window() # TITLE
{
    window=$(xdotool search --onlyvisible --name "^${1//\?/.}\$" 2> /dev/null | head -n 1) && [ -n "$window" ]
}

# Waits until the screen stands still, 15 s at most (a caret may blink on), then takes the window's picture.
photograph() # FILE
{
    local last='' now
    for ((i = 0; i < 30; i++)); do
        now=$(import -window root rgb:- | sha256sum)
        if [ "$now" = "$last" ]; then break; fi
        last=$now
        sleep 0.5
    done
    import -frame -window "$window" "$1"
}

wait_for_end()
{
    for ((i = 0; i < 150; i++)); do
        running || break
        sleep 0.2
    done
    if running; then fail "the program did not end within 30 s"; fi
    wait "$program_pid" || fail "the program ended with exit code $?"
    program_pid=
}
