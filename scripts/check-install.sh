#!/usr/bin/env bash
# Installs the built library into a scratch prefix and builds a small program outside the source
# tree against it with find_package(Corvane CONFIG) and with pkg-config.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
prefix=$(mktemp -d)
work=$(mktemp -d)
trap 'rm -rf "$prefix" "$work"' EXIT
cmake --install "$build" --prefix "$prefix" >/dev/null
cp -r examples/consumer "$work/src"
cmake -S "$work/src" -B "$work/build" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/build" >/dev/null
"$work/build/consumer"
PKG_CONFIG_PATH="$prefix/lib/pkgconfig:$prefix/lib/x86_64-linux-gnu/pkgconfig" \
  c++ -o "$work/consumer-pc" "$work/src/main.cpp" $(PKG_CONFIG_PATH="$prefix/lib/pkgconfig:$prefix/lib/x86_64-linux-gnu/pkgconfig" pkg-config --cflags --libs --static corvane)
"$work/consumer-pc"
echo "install check: find_package and pkg-config consumers built and ran"
