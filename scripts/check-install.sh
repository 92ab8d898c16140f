#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the library twice, shared and static, into scratch prefixes, checks what was installed
# (public headers only, no third-party headers, only the library's own symbols exported), and
# builds and runs every program under examples/ against each install with find_package(Corvane)
# and with pkg-config: four ways in all.
# Usage: check-install.sh [static build tree]   (default build/; it must be a static build)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
static_build=${1:-build}
shared_build=build-shared
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The shared library alone, in a tree of its own.
cmake -S . -B "$shared_build" -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo} -DBUILD_SHARED_LIBS=ON \
  -DCORVANE_WARNINGS_AS_ERRORS=ON -DCORVANE_TESTS=OFF -DCORVANE_BENCH=OFF -DCORVANE_APPS=OFF >/dev/null
cmake --build "$shared_build" --target corvane -j"$(nproc)" >/dev/null
if grep -q 'BUILD_SHARED_LIBS:BOOL=ON' "$static_build/CMakeCache.txt"; then
  echo "install check: $static_build is no static build"; exit 1
fi

for kind in shared static; do
  build=$([ $kind = shared ] && echo "$shared_build" || echo "$static_build")
  prefix=$work/prefix-$kind
  cmake --install "$build" --prefix "$prefix" >/dev/null
  libdir=$(ls -d "$prefix"/lib*/ | head -1)
  libdir=${libdir%/}

  # Public headers only, and none that reaches for a third-party or system display header.
  if grep -rEn '#include *[<"](cairo|pango|glib|gobject|SDL|X11|nlohmann)' "$prefix/include"; then
    echo "install check: an installed header includes a third-party header"; exit 1
  fi
  [ ! -e "$prefix/include/corvane/desktop" ] || { echo "install check: the desktop's internals were installed"; exit 1; }
  # The live dialogs are a module loaded on first use: installed beside the library, never linked.
  [ -f "$libdir/corvane/libcorvane-live-dialogs.so" ] || { echo "install check: the dialogs module is missing"; exit 1; }
  if [ $kind = shared ]; then
    exported=$(nm -D --defined-only --demangle "$libdir"/libcorvane.so)
    if grep -E 'nlohmann|cairo_|pango_' <<<"$exported"; then
      echo "install check: the shared library exports names that are not its own"; exit 1
    fi
    echo "install check: libcorvane.so exports $(wc -l <<<"$exported") symbols"
    if readelf -d "$libdir"/libcorvane.so | grep NEEDED | grep -E 'gtk|gdk'; then
      echo "install check: the library links GTK, which only its dialogs module may"; exit 1
    fi
  fi

  for example in examples/*/; do
    name=$(basename "$example")
    # CMake package.
    cmake -S "$example" -B "$work/$kind-$name" -DCMAKE_PREFIX_PATH="$prefix" \
      -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
    cmake --build "$work/$kind-$name" -j"$(nproc)" >/dev/null
    (cd "$work" && "$work/$kind-$name/$name" >/dev/null)
    # pkg-config: no -std flag comes from the package, the program chooses its standard.
    export PKG_CONFIG_PATH="$libdir/pkgconfig"
    if [ $kind = shared ]; then
      flags=$(pkg-config --cflags --libs corvane)
      flags="$flags -Wl,-rpath,$libdir"
    else
      flags=$(pkg-config --cflags --libs --static corvane)
    fi
    c++ -std=c++20 -o "$work/$kind-$name-pc" "$example/main.cpp" $flags
    (cd "$work" && "$work/$kind-$name-pc" >/dev/null)
    unset PKG_CONFIG_PATH
    echo "install check: $name built and ran ($kind: find_package and pkg-config)"
  done
done
