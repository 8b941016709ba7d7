#!/usr/bin/env bash
# The demo's start-up against a bare Qt main window with the same pieces, both
# started, drawn once and closed (VELD_DEMO_SMOKE=1) on Qt's offscreen
# platform, RUNS times each, alternating: the median wall times and their
# ratio. Goal: at most 1.5 times the bare window.
#   RUNS=21 bash scripts/start-cost.sh
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD=${BENCH_BUILD_DIR:-build-bench}
RUNS=${RUNS:-11}
cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVELD_BUILD_BENCH=ON \
  -DVELD_BUILD_TESTS=OFF > /dev/null
cmake --build "$BUILD" -j2 --target veld-demo bench_bare_window veld5DlgCE > /dev/null
export QT_QPA_PLATFORM=offscreen VELD_DEMO_SMOKE=1

# ms COMMAND...: the wall time of one run in milliseconds.
ms() {
  local start end
  start=$(date +%s%N)
  "$@" > /dev/null 2>&1
  end=$(date +%s%N)
  echo $(((end - start) / 1000000))
}
median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

demo=() bare=()
for ((i = 0; i < RUNS; i++)); do
  demo+=("$(ms "$BUILD/bin/veld-demo")")
  bare+=("$(ms "$BUILD/bin/bench_bare_window")")
done
d=$(printf '%s\n' "${demo[@]}" | median)
b=$(printf '%s\n' "${bare[@]}" | median)
printf 'demo start-up %d ms, bare window %d ms, ratio %s (median of %d runs each)\n' \
  "$d" "$b" "$(LC_ALL=C awk -v d="$d" -v b="$b" 'BEGIN { printf "%.2f", d / b }')" "$RUNS"
