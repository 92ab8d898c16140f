#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Configures and builds into build/ (or the folder given as first argument, with extra cmake flags after it).
set -euo pipefail
cd "$(dirname "$0")/.."
dir=${1:-build}; shift || true
# Warnings are errors in the project's own builds (the option is off for users of the package).
cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo} -DCORVANE_WARNINGS_AS_ERRORS=ON "$@" >/dev/null
cmake --build "$dir" -j"$(nproc)"
