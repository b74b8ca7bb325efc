#!/usr/bin/env bash
# Starts some of the sample vendor's programs, which have the update manager look for updates, and takes a picture of
# what the person then sees: a question, a notice, or nothing.
#
#   sample/photograph-startup.sh FOLDER SUFFIX PROGRAM [ARGUMENT...]
#
# PROGRAM with its arguments is velmo-sample-program. Needs a display with a window manager (cmake/with-display.sh);
# the pictures are FOLDER/question<SUFFIX>.png and FOLDER/notice<SUFFIX>.png.
set -euo pipefail

folder=$1
suffix=$2
shift 2

# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/photograph.sh"

start() # NAME
{
    watch_program "$folder/startup$suffix.log" "${program[@]}" --wait "$1"
}
program=("$@")

start "Wiring 2"
wait_for_end
echo "Wiring 2 starts: it is up to date, and nothing is shown"

declare -A title_of=([question]="View Available Updates?" [notice]="Update Available")
declare -A program_of=([question]="Rooftop 4" [notice]="Panelplan 6")
for what in question notice; do
    start "${program_of[$what]}"
    wait_for 60 "the $what appeared" find_window "${title_of[$what]}"
    picture=$folder/$what$suffix.png
    photograph "$picture"
    xdotool windowactivate --sync "$window" key --window 0 Escape
    wait_for_end
    echo "${program_of[$what]} starts: $picture"
done
