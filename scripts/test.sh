#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds, and runs the whole suite; checks that the getting-started page
# shows the example program; builds and runs the examples against the installed package (shared
# and static, CMake and pkg-config); then runs the suite again under AddressSanitizer and
# UndefinedBehaviorSanitizer (skip with --no-sanitize), with a program that ends without
# unloading anything; then runs each fuzz target for a minute (skip with --no-fuzz).
set -euo pipefail
cd "$(dirname "$0")/.."
sanitize=1
fuzz=1
for a in "$@"; do
  [ "$a" = "--no-sanitize" ] && sanitize=0
  [ "$a" = "--no-fuzz" ] && fuzz=0
done
scripts/install-deps.sh
scripts/check-docs.sh
scripts/build.sh build
(cd build && ctest --output-on-failure -j"$(nproc)")
./build/apps/corvane-gallery --out build/gallery-check >/dev/null
scripts/check-install.sh build
if [ "$sanitize" = 1 ]; then
  BUILD_TYPE=Debug scripts/build.sh build-asan -DCORVANE_SANITIZE=address,undefined -DCORVANE_BENCH=OFF -DCORVANE_APPS=OFF
  # One process for the whole suite: sanitizer start-up per test would cost minutes.
  ./build-asan/tests/corvane_tests --gtest_brief=1
  ./build-asan/tests/corvane_exit_without_unload
  echo "sanitizer check: a program that returns without unloading ends cleanly"
fi
if [ "$fuzz" = 1 ]; then
  scripts/fuzz.sh 60
fi
