#!/usr/bin/env bash
# Builds the static wxWidgets for Windows that the "windows" preset links, once, from Debian's own source package.
#
#   cmake/build-wx-windows.sh           builds when needed (about 8 minutes on 2 cores), else returns at once
#   cmake/build-wx-windows.sh --where   prints the folder and does nothing
#
# The result lives outside the tree, in ${VELMO_CACHE:-~/.cache/velmo}, under a name made of the wxWidgets version and
# of everything here that shapes it, so that a change of an option builds anew and an old build is never taken for it.
set -euo pipefail

host=x86_64-w64-mingw32
options=(
    --host="$host" --disable-shared --without-libpng --without-libjpeg --without-libtiff --without-zlib --without-expat
    --without-regex --disable-xrc --disable-richtext --disable-stc --disable-ribbon --disable-propgrid --disable-aui
    --disable-mediactrl --disable-svg --enable-html --enable-accessibility --enable-webview --disable-debug_flag
)
flags="-Os -g0"

# The headers that the native build uses name the version: both builds are of one wxWidgets.
version=$(dpkg-query -W -f '${Version}' libwxgtk3.2-dev)
key=$(printf '%s\n' "$version" "${options[@]}" "$flags" | sha256sum | cut -c1-12)
prefix=${VELMO_CACHE:-$HOME/.cache/velmo}/wxwidgets-windows-${version%%+*}-$key

if [ "${1:-}" = --where ]; then echo "$prefix"; exit 0; fi
if [ -x "$prefix/bin/wx-config" ]; then exit 0; fi

# Two callers at once: the second waits, and finds the work done.
mkdir -p "${prefix%/*}"
exec 9> "$prefix.lock"
flock 9
if [ -x "$prefix/bin/wx-config" ]; then exit 0; fi

echo "Building wxWidgets $version for Windows into $prefix (once, about 8 minutes) ..."
mkdir -p "$prefix.work"
work=$(cd "$prefix.work" && pwd)
log=$work/build.log
# shellcheck disable=SC2154  # the trap itself sets it
trap 'status=$?; [ $status -eq 0 ] || { echo "wxWidgets for Windows failed; the end of $log:"; tail -n 30 "$log"; } >&2' EXIT

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
    apt-get "${private[@]}" source --download-only "wxwidgets3.2=$version"
    rm -rf source build staged
    mkdir source build
    tar -xf wxwidgets3.2_*.orig.tar.* -C source --strip-components=1
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
