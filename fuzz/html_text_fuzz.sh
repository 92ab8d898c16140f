#!/usr/bin/env bash
# Builds the HTML text fuzz target on its own (clang++-14, libFuzzer, ASan and UBSan) and runs it:
#   fuzz/html_text_fuzz.sh [seconds]   (default 60)
set -euo pipefail
cd "$(dirname "$0")/.."
dir=build-fuzz
flags="-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=all"
cmake -S . -B "$dir" -DCMAKE_CXX_COMPILER=clang++-14 -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCORVANE_TESTS=OFF -DCORVANE_BENCH=OFF -DCORVANE_APPS=OFF -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build "$dir" -j2 --target corvane
clang++-14 -std=c++20 -g -O1 $flags -fsanitize=fuzzer -Iinclude fuzz/html_text_fuzz.cpp "$dir/libcorvane.a" \
  $(pkg-config --libs pangocairo cairo) -o "$dir/html_text_fuzz"
mkdir -p "$dir/corpus/html_text"
"$dir/html_text_fuzz" -max_total_time="${1:-60}" -timeout=5 -rss_limit_mb=2048 \
  "$dir/corpus/html_text" fuzz/corpus/html_text
