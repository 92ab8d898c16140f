#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds, and renders every control into out/gallery (and opens the live
# viewer when a display is present and --live is given).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh build
./build/apps/corvane-gallery --out out/gallery "$@"
