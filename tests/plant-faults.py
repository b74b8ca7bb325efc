#!/usr/bin/env python3
"""Plants faults, one at a time, and tells which of them the suites catch.

    tests/plant-faults.py [--preset dev] [--jobs 3] LIST...

A list names, for each fault, the suite that should catch it and the file, then the text to look for, which has to stand
in the file once, and what to put in its place; blank lines and lines that begin with # are skipped:

    settings src/settings/CINIFileHandler.cpp
    - if (text.size() > 255)
    + if (text.size() > 256)

More than one - or + line makes a text of several lines, none after the - lines takes the text out. Each file is put back
as it was, after Ctrl+C too. The preset has to be configured. The exit code is the number of faults that went through, or
could not be tried.
"""
import argparse
import os
import pathlib
import re
import signal
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def read_list(name):
    faults = []
    for number, line in enumerate(pathlib.Path(name).read_text().splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        if line[0] in "-+" and faults:
            # One blank after the sign is the list's own; the rest is the text.
            faults[-1][line[0]].append(line[2:])
        elif len(line.split()) == 2:
            suite, file = line.split()
            faults.append({"where": f"{name}:{number}", "suite": suite, "file": ROOT / file, "-": [], "+": []})
        else:
            sys.exit(f"{name}:{number}: neither 'suite file' nor a line that begins with - or +")
    return faults


def run(*command):
    return subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)


def outcome(options, suite):
    """'passes', 'caught' with the tests that saw it, or 'does not build'."""
    if run("cmake", "--build", "--preset", options.preset, "-j", str(options.jobs), "--target", suite + "_tests").returncode:
        return "does not build"
    tests = run("cmake/with-display.sh", "ctest", "--preset", options.preset, "--timeout", "90", "-R", f"^{suite}$")
    if tests.returncode == 0:
        return "passes"
    seen = dict.fromkeys(re.findall(r"\[  FAILED  \] (\w[\w/.]*)", tests.stdout))
    return "caught: " + (", ".join(list(seen)[:3]) or "the suite crashed or hung")


def plant(options, fault):
    whole = fault["file"].read_bytes()
    text = whole.decode()
    wanted = "\n".join(fault["-"])
    if not wanted or text.count(wanted) != 1:
        return f"not tried: the text stands {text.count(wanted) if wanted else 0} times in the file"
    try:
        fault["file"].write_text(text.replace(wanted, "\n".join(fault["+"])))
        return outcome(options, fault["suite"])
    finally:
        # With a new time: an object made of the fault must not look younger than its source.
        fault["file"].write_bytes(whole)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--preset", default="dev")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("lists", nargs="+", metavar="LIST")
    options = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    faults = [fault for name in options.lists for fault in read_list(name)]
    suites = sorted({fault["suite"] for fault in faults})
    for suite in suites:
        if (now := outcome(options, suite)) != "passes":
            sys.exit(f"plant-faults: without a fault, {suite} {now}")
    missed = 0
    for fault in faults:
        said = plant(options, fault)
        if said == "passes":
            said = "NOT CAUGHT"
        missed += not said.startswith("caught")
        print(f"{fault['where']}: {fault['suite']}: {said}: {' '.join(fault['-']).strip()}", flush=True)
    for suite in suites:
        outcome(options, suite)  # What is built is the tree again.
    print(f"plant-faults: {len(faults) - missed} of {len(faults)} caught")
    return min(missed, 100)


sys.exit(main())
