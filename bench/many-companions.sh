#!/usr/bin/env bash
# Several update managers on one desktop at once: counts the wrong tables and the false exit codes.
#
#   cmake/with-display.sh bench/many-companions.sh BUILD [ROUNDS [COMPANIONS]]
#
# BUILD is a folder of a build, such as build/release, or build/windows, whose programs run under Wine (in WINEPREFIX);
# 200 rounds of 40 companions are the default. In each round the companions start at the same moment and the window,
# open all the time, refreshes its lists.
set -euo pipefail
cd "$(dirname "$0")/.."

build=$(realpath "$1")
rounds=${2:-200}
companions=${3:-40}

work=$(mktemp -d)
site_pid=
window_pid=
round=-1
started=
# Also of what was done when somebody stops it.
tell()
{
    sort "$work"/wrong.* | uniq -c
    echo "$round rounds of $companions companions in $((SECONDS - started)) s:" \
        "$(cat "$work"/wrong.* | grep -c 'wrong table') wrong tables," \
        "$(cat "$work"/wrong.* | grep -c 'false exit code') false exit codes," \
        "$(grep -c 'GET /pub/demo/version\.ini' "$work/site.log") fetches;" \
        "exit code $right was right, of $(wc -l < "$work/right") lines"
}
finish()
{
    if [ "$round" -gt 0 ]; then tell; fi
    if [ -n "$window_pid" ]; then kill "$window_pid" 2> /dev/null || true; fi
    if [ -n "$site_pid" ]; then kill "$site_pid" 2> /dev/null || true; fi
    rm -rf "$work"
}
trap finish EXIT
trap 'exit 143' TERM HUP
program() # NAME FOLDER
{
    local found
    found=$(find "$2" -type f -name "$1" -perm -u+x -print -quit)
    [ -n "$found" ] || { echo "many-companions: $2 has no $1" >&2; exit 1; }
    echo "$found"
}

# The site is a native program, whatever the others are.
site=$(program velmo-vendor-site build)
if [ -f "$build/bin/VelmoUpd.exe" ]; then
    run=(wine)
    ending=.exe
else
    run=()
    ending=
    export VELMO_HOME=$work/desktop
    mkdir "$VELMO_HOME"
fi
: > "$work/site.log"
"$site" --port 0 --setups "$(program "velmo-equipment-setup$ending" "$build")" > "$work/site.log" 2>&1 < /dev/null &
site_pid=$!
for ((i = 0; i < 100; i++)); do
    server=$(sed -n '1s|^listening on \(http://[^[:space:]]*\).*|\1|p' "$work/site.log")
    if [ -n "$server" ]; then break; fi
    sleep 0.1
done
"${run[@]}" "$(program "velmo-sample-desktop$ending" "$build")" --server "$server" < /dev/null > /dev/null

companion=("${run[@]}" "$build/bin/velmoupdctl$ending")
right=0
"${companion[@]}" status > "$work/right" < /dev/null 2> /dev/null || right=$?
"${run[@]}" "$build/bin/VelmoUpd$ending" > /dev/null 2>&1 < /dev/null &
window_pid=$!
for ((i = 0; i < 300; i++)); do
    window=$(xdotool search --onlyvisible --name '^Velmo Software Update Manager$' 2> /dev/null | head -n 1) || true
    if [ -n "$window" ]; then break; fi
    sleep 0.2
done
[ -n "$window" ] || { echo "many-companions: no window" >&2; exit 1; }

one() # NAME: a line for a wrong table, one for a false exit code
{
    local code=0
    "${companion[@]}" status > "$work/out.$1" 2> "$work/errors.$1" < /dev/null || code=$?
    if [ "$code" != "$right" ]; then echo "false exit code $code: $(head -c 200 "$work/errors.$1")"; fi
    if ! cmp -s "$work/right" "$work/out.$1"; then echo "wrong table"; fi
}
started=$SECONDS
for ((round = 0; round < rounds; round++)); do
    pids=()
    for ((i = 0; i < companions; i++)); do
        one "$i" >> "$work/wrong.$i" &
        pids+=($!)
    done
    xdotool windowactivate --sync "$window" key F5
    wait "${pids[@]}"
    kill -0 "$window_pid" 2> /dev/null || { echo "many-companions: the window ended in round $round" >&2; exit 1; }
done
