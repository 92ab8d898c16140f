#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
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

# The umbrella header brings every public header (but the macro guards, which have no guard of
# their own and are included by the headers that need them).
missing=0
for h in $(cd include && find corvane -name '*.h' ! -name corvane.h ! -name 'system_macros_*' | sort); do
  grep -q "#include <$h>" include/corvane/corvane.h || { echo "umbrella check: <$h> is missing from <corvane/corvane.h>"; missing=1; }
done
[ "$missing" = 0 ] && echo "umbrella check: <corvane/corvane.h> brings every public header"
exit "$missing"
