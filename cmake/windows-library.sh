#!/usr/bin/env bash
# Builds a library for the "windows" preset once, from Debian's own source package. Sourced by build-*-windows.sh, which
# set:
#   name        what the folder of the result begins with
#   native      the Debian package of the native build's headers: both builds are of one version
#   source      the source package
#   proof       a file of the finished build
#   duration    on 2 cores, for people
#   options     of configure, an array
#   flags       of the compilers
#   unpack      a function that makes the folder "source", with its configure, of what was downloaded beside it
#
#   build-*-windows.sh           builds when needed, else returns at once
#   build-*-windows.sh --where   prints the folder and does nothing
#
# The result lives outside the tree, in ${VELMO_CACHE:-~/.cache/velmo}, under a name made of the library's version and
# of everything here that shapes it, so that a change of an option builds anew and an old build is never taken for it.
# shellcheck disable=SC2154  # the script that reads this one sets them
set -euo pipefail

host=x86_64-w64-mingw32
options=(--host="$host" --disable-shared "${options[@]}")

version=$(dpkg-query -W -f '${source:Version}' "$native")
key=$(printf '%s\n' "$version" "${options[@]}" "$flags" | sha256sum | cut -c1-12)
prefix=${VELMO_CACHE:-$HOME/.cache/velmo}/$name-windows-${version%%+*}-$key

if [ "${1:-}" = --where ]; then echo "$prefix"; exit 0; fi
if [ -e "$prefix/$proof" ]; then exit 0; fi

# Two callers at once: the second waits, and finds the work done.
mkdir -p "${prefix%/*}"
exec 9> "$prefix.lock"
flock 9
if [ -e "$prefix/$proof" ]; then exit 0; fi

echo "Building $name $version for Windows into $prefix (once, $duration) ..."
mkdir -p "$prefix.work"
work=$(cd "$prefix.work" && pwd)
log=$work/build.log
trap 'status=$?; [ $status -eq 0 ] || { echo "$name for Windows failed; the end of $log:"; tail -n 30 "$log"; } >&2' EXIT

# A private list of sources: the machine's own apt configuration stays as it is.
sources=$work/apt
mkdir -p "$sources/lists/partial" "$sources/parts"
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    if [ -f "$file" ]; then sed -n 's/^deb /deb-src /p' "$file"; fi
done > "$sources/parts/velmo.list"
for file in /etc/apt/sources.list.d/*.sources; do
    if [ -f "$file" ]; then sed 's/^Types:.*/Types: deb-src/' "$file"; echo; fi
done > "$sources/parts/velmo.sources"
private=(-o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$sources/parts"
         -o Dir::State::lists="$sources/lists" -o APT::Sandbox::User=root)
{
    apt-get "${private[@]}" update
    cd "$work"
    rm -rf source build staged
    apt-get "${private[@]}" source --download-only "$source=$version"
    unpack
    mkdir build
    cd build
    ../source/configure --prefix="$prefix" "${options[@]}" \
        CC=$host-gcc-posix CXX=$host-g++-posix CXXFLAGS="$flags" CFLAGS="$flags"
    make -j"$(nproc)"
    make install DESTDIR="$work/staged"
} > "$log" 2>&1
# Whole or not at all.
rm -rf "$prefix"
mv "$work/staged$prefix" "$prefix"
rm -rf "$work"
