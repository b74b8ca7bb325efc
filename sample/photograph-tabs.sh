#!/usr/bin/env bash
# Starts the update manager, waits until it has fetched its lists, takes a picture of each tab and closes it again.
#
#   sample/photograph-tabs.sh SITE_LOG FOLDER SUFFIX PROGRAM [ARGUMENT...]
#
# Needs a display with a window manager (cmake/with-display.sh). SITE_LOG is the vendor site's log of requests; the
# pictures are FOLDER/programs<SUFFIX>.png, equipment<SUFFIX>.png and news<SUFFIX>.png.
set -euo pipefail

site_log=$1
folder=$2
suffix=$3
shift 3

caption='^Velmo Software Update Manager$'
tabs=(programs equipment news)
declare -A key_for_tab=([programs]=ctrl+1 [equipment]=ctrl+2 [news]=ctrl+3)

fail()
{
    if [ -s "$program_log" ]; then tail -n 20 "$program_log" >&2; fi
    echo "photograph-tabs: $1" >&2
    exit 1
}

program_log=$folder/window$suffix.log
setpriv --pdeathsig TERM "$@" < /dev/null > "$program_log" 2>&1 &
program_pid=$!
work=$(mktemp -d)
# shellcheck disable=SC2317  # called by the trap
finish()
{
    kill "$program_pid" 2> /dev/null || true
    rm -rf "$work"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

running() { kill -0 "$program_pid" 2> /dev/null; }
# shellcheck disable=SC2317  # called by wait_for, like the next
lists_fetched() { grep -q 'GET /pub/demo/manufver\.ini' "$site_log"; }
# shellcheck disable=SC2317
window_up() { xdotool search --onlyvisible --name "$caption" > "$work/windows" 2> /dev/null; }
wait_for() # SECONDS WHAT TEST
{
    for ((i = 0; i < $1 * 5; i++)); do
        if "$3"; then return; fi
        running || fail "the program ended before $2"
        sleep 0.2
    done
    fail "not within $1 s: $2"
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
# Whether more pixels differ than a caret or a button's focus explains: another tab.
look_different() # FILE FILE
{
    local pixels
    pixels=$(compare -metric AE "$1" "$2" null: 2>&1) || true
    [ "$(printf '%.0f' "$pixels")" -gt 16000 ]
}

wait_for 60 "its window appeared" window_up
window=$(head -n 1 "$work/windows")
wait_for 60 "it fetched the lists" lists_fetched
xdotool windowactivate --sync "$window"

previous=
for tab in "${tabs[@]}"; do
    picture=$folder/$tab$suffix.png
    xdotool key --clearmodifiers "${key_for_tab[$tab]}"
    photograph "$picture"
    if [ -n "$previous" ]; then
        look_different "$previous" "$picture" || fail "the tab \"$tab\" did not come up"
    fi
    echo "$picture"
    previous=$picture
done

xdotool windowactivate --sync "$window" key --clearmodifiers alt+F4
for ((i = 0; i < 150; i++)); do
    running || break
    sleep 0.2
done
if running; then fail "the program did not close within 30 s"; fi
wait "$program_pid" || fail "the program ended with exit code $?"
