#!/usr/bin/env bash
# The program shown in docs/getting-started.md is examples/getting_started/main.cpp, verbatim:
# the page's first C++ code block must equal the file, so that the page cannot go stale.
set -euo pipefail
cd "$(dirname "$0")/.."
page=docs/getting-started.md
program=examples/getting_started/main.cpp
shown=$(awk '/^```cpp$/ { inside = 1; next } inside && /^```$/ { exit } inside { print }' "$page")
if ! diff -u <(printf '%s\n' "$shown") "$program"; then
  echo "docs check: the program in $page differs from $program"; exit 1
fi
echo "docs check: $page shows $program"
