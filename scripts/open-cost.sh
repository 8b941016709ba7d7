#!/usr/bin/env bash
# Instructions per dialog open, counted by callgrind (stable on a busy machine):
# for every built factory operation and layout, the marginal cost
# (instructions of N opens - instructions of 1 open) / (N - 1), of the dialog
# and of a bare QDialog with the same controls as plain Qt widgets, and their
# ratio. Goal: at most 16 million instructions and twice the bare dialog.
#   OPENS=11 OPERATIONS="ShowDlgRotate" LAYOUTS="0 2" bash scripts/open-cost.sh
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD=${BENCH_BUILD_DIR:-build-bench}
N=${OPENS:-11}
cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVELD_BUILD_BENCH=ON \
  -DVELD_BUILD_TESTS=OFF > /dev/null
cmake --build "$BUILD" -j2 --target bench_dialog_open > /dev/null
BIN="$BUILD/bin/bench_dialog_open"
export QT_QPA_PLATFORM=offscreen
OPERATIONS=${OPERATIONS:-$("$BIN" --benchmark_list_tests=true 2>/dev/null | cut -d/ -f1 | sort -u)}
LAYOUTS=${LAYOUTS:-0 1 2 3}
OUT=$(mktemp -d)
trap 'rm -rf "$OUT"' EXIT

# instructions OPENS OPERATION LAYOUT [--bare]
instructions() {
  valgrind --tool=callgrind --callgrind-out-file="$OUT/cg" "$BIN" --opens "$1" \
    --operation "$2" --layout "$3" ${4:-} > /dev/null 2>&1
  awk '/^(summary|totals):/ { print $2; exit }' "$OUT/cg"
}

printf '%-24s %6s %14s %14s %7s\n' operation layout "instr/open" "bare/open" ratio
for op in $OPERATIONS; do
  for layout in $LAYOUTS; do
    d1=$(instructions 1 "$op" "$layout"); dn=$(instructions "$N" "$op" "$layout")
    b1=$(instructions 1 "$op" "$layout" --bare); bn=$(instructions "$N" "$op" "$layout" --bare)
    awk -v op="$op" -v l="$layout" -v d1="$d1" -v dn="$dn" -v b1="$b1" -v bn="$bn" -v n="$N" \
      'BEGIN { d = (dn - d1) / (n - 1); b = (bn - b1) / (n - 1);
               printf "%-24s %6d %14.0f %14.0f %7.2f\n", op, l, d, b, d / b }'
  done
done
