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

tabs=(programs equipment news)
declare -A key_for_tab=([programs]=ctrl+1 [equipment]=ctrl+2 [news]=ctrl+3)

# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/photograph.sh"

# shellcheck disable=SC2317  # called by wait_for
lists_fetched() { grep -q 'GET /pub/demo/manufver\.ini' "$site_log"; }
# Whether more pixels differ than a caret or a button's focus explains: another tab.
look_different() # FILE FILE
{
    local pixels
    pixels=$(compare -metric AE "$1" "$2" null: 2>&1) || true
    [ "$(printf '%.0f' "$pixels")" -gt 16000 ]
}

# The ground of each of the vendor's pages (sample/frame.htm). Where there is no browser engine, as under Wine, no such
# page comes.
page_ground='#F4F6F7'
# shellcheck disable=SC2317  # called by wait_for
page_shown()
{
    import -window "$window" png:- | convert png:- -format %c histogram:info: |
        awk -v ground="$page_ground" 'index($0, ground) && $1 + 0 > 10000 { found = 1 } END { exit !found }'
}

watch_program "$folder/window$suffix.log" "$@"
wait_for 60 "its window appeared" find_window "Velmo Software Update Manager"
wait_for 60 "it fetched the lists" lists_fetched
xdotool windowactivate --sync "$window"

previous=
for tab in "${tabs[@]}"; do
    picture=$folder/$tab$suffix.png
    xdotool key --clearmodifiers "${key_for_tab[$tab]}"
    if [ "$tab" != equipment ] && [ -z "$suffix" ]; then wait_for 60 "a page was shown" page_shown; fi
    photograph "$picture"
    if [ -n "$previous" ]; then
        look_different "$previous" "$picture" || fail "the tab \"$tab\" did not come up"
    fi
    echo "$picture"
    previous=$picture
done

xdotool windowactivate --sync "$window" key --clearmodifiers alt+F4
wait_for_end
