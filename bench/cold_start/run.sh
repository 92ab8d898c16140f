#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs each cold-start program in fresh processes (default 15 times) and prints every run's time
# in main, the whole process's wall time and its peak memory; usage: run.sh BUILD_DIR [RUNS].
set -e
dir=${1:-build}/bench/cold_start
runs=${2:-15}
for program in cold_start_corvane cold_start_pango; do
  i=0
  while [ "$i" -lt "$runs" ]; do
    /usr/bin/time -f "$program wall_s=%e maxrss_kb=%M" "$dir/$program"
    i=$((i + 1))
  done
done
