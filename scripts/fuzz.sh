#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the fuzz targets with Debian's clang++-14 and libFuzzer into build-fuzz/, then runs each
# for the given number of seconds (default 60), one after the other, starting from the seeds in
# fuzz/corpus/<target>. A crash, a hang (5 s per input), a leak or more than 2 GB of memory is a
# finding: its input is kept under build-fuzz/findings/ and the script fails.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
shift || true
scripts/install-deps.sh --fuzz
CXX=clang++-14 cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCORVANE_FUZZ=ON -DCORVANE_TESTS=OFF \
  -DCORVANE_BENCH=OFF -DCORVANE_APPS=OFF >/dev/null
cmake --build build-fuzz -j"$(nproc)"

# Longest input per target: long enough for what each parser meets in practice.
declare -A max_len=([label_markup]=4096 [form_file]=65536 [picture]=65536 [val_format]=256 [property_bag]=16384 [html_text]=65536 [small_parsers]=4096)
targets=("$@")
[ ${#targets[@]} -eq 0 ] && targets=(label_markup form_file picture val_format property_bag html_text small_parsers)
failed=()
for t in "${targets[@]}"; do
  work=build-fuzz/corpus/$t
  mkdir -p "$work" build-fuzz/findings
  echo "== fuzz_$t for ${seconds}s"
  # New inputs go to the working corpus; the committed seeds are only read.
  if ! ./build-fuzz/fuzz/fuzz_"$t" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 \
       -max_len="${max_len[$t]}" -print_final_stats=1 -artifact_prefix=build-fuzz/findings/"$t"- \
       "$work" fuzz/corpus/"$t" 2>build-fuzz/fuzz_"$t".log; then
    failed+=("$t")
    tail -n 40 build-fuzz/fuzz_"$t".log
  fi
  grep -E "^stat::number_of_executed_units|^stat::peak_rss_mb" build-fuzz/fuzz_"$t".log || true
done
if [ ${#failed[@]} -gt 0 ]; then
  echo "fuzzing found problems in: ${failed[*]} (inputs in build-fuzz/findings/)"
  exit 1
fi
echo "fuzzing: no findings"
