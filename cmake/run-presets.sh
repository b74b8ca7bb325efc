#!/usr/bin/env bash
# Configures, builds and tests one preset after the other; the first failing step ends it.
#
#   cmake/run-presets.sh PRESET...
set -euo pipefail
cd "$(dirname "$0")/.."

# ccache sees relative paths: another clone on this machine finds the same objects.
export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$PWD}
jobs=$(nproc)

step() # PRESET WHAT COMMAND...
{
    local preset=$1 what=$2
    shift 2
    echo "== $preset: $what"
    if "$@"; then return; fi
    echo "check: preset $preset failed at this step: $what" >&2
    exit 1
}

for preset in "$@"; do
    step "$preset" configure cmake --preset "$preset" --log-level=WARNING
    step "$preset" build cmake --build --preset "$preset" --parallel "$jobs"
    if [ "$preset" = windows ]; then step "$preset" "start of Wine" cmake/start-wine.sh; fi
    step "$preset" test ctest --preset "$preset" --parallel "$jobs"
done
