#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the Debian packages the build and the live tests (an X server in memory, the tools
# that check its windows from outside) need, only when one is missing; with --fuzz also
# Debian's Clang and its libFuzzer, for the fuzz targets; with --bench-peers also the HTML view's
# benchmark peers, Qt's widgets base and litehtml.
set -euo pipefail
packages=(build-essential cmake pkg-config libcairo2-dev libpango1.0-dev libsdl2-dev libx11-dev libxext-dev libxrandr-dev libxcursor-dev
          libxfixes-dev
          libgtk-3-dev libglib2.0-dev
          nlohmann-json3-dev
          libsqlite3-dev libgtest-dev libgmock-dev libbenchmark-dev libssl-dev fonts-dejavu-core fonts-liberation2
          fonts-wqy-microhei
          xvfb xauth x11-utils xdotool)
fuzz_packages=(clang-14 libclang-rt-14-dev)
bench_peer_packages=(qtbase5-dev liblitehtml-dev)
for a in "$@"; do
  [ "$a" = "--fuzz" ] && packages+=("${fuzz_packages[@]}")
  [ "$a" = "--bench-peers" ] && packages+=("${bench_peer_packages[@]}")
done
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo=""; [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
