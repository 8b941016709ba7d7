#!/usr/bin/env bash
# Instructions per dialog open, counted by callgrind (stable on a busy machine):
# for every built factory operation and layout, the cost of each further open
# of the dialog and of a bare QDialog with the same controls as plain Qt
# widgets (the instructions of opens 2 to N in one process, over N - 1: the
# start and the first open load fonts and fill caches by amounts that vary
# from run to run), and their ratio against the goal: at most 16 million
# instructions and 1.3 times the bare dialog; a line over its goal ends in
# "over". The bare dialog holds every control, those of a container's page too,
# and shows every list's rows: a QTableView over a plain model of the same
# headings and texts, with the same column widths.
# BENCH_BUILD_DIR names the build directory (default build-bench).
#   OPENS=11 OPERATIONS="ShowDlgRotate" LAYOUTS="0 2" bash scripts/open-cost.sh
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD=${BENCH_BUILD_DIR:-build-bench}
N=${OPENS:-11}
((N >= 2)) || { echo "open-cost.sh: OPENS must be at least 2" >&2; exit 2; }
# A new build directory is a release build of the benchmarks only; an existing
# one keeps its own settings (and its tests).
NEW=()
[[ -f "$BUILD/CMakeCache.txt" ]] || NEW=(-G Ninja -DCMAKE_BUILD_TYPE=Release -DVELD_BUILD_TESTS=OFF)
cmake -S . -B "$BUILD" "${NEW[@]}" -DVELD_BUILD_BENCH=ON > /dev/null
cmake --build "$BUILD" -j2 --target bench_dialog_open > /dev/null
BIN="$BUILD/bin/bench_dialog_open"
export QT_QPA_PLATFORM=offscreen LC_ALL=C  # numbers in the "C" notation
OPERATIONS=${OPERATIONS:-$("$BIN" --benchmark_list_tests=true 2>/dev/null | cut -d/ -f1 | sort -u)}
LAYOUTS=${LAYOUTS:-0 1 2 3}
OUT=$(mktemp -d)
trap 'rm -rf "$OUT"' EXIT

# instructions OPERATION LAYOUT [--bare]: of opens 2 to N (the bench's furtherOpens)
instructions() {
  valgrind --tool=callgrind --collect-atstart=no --toggle-collect='*furtherOpens*' \
    --callgrind-out-file="$OUT/cg" "$BIN" --opens "$N" --operation "$1" --layout "$2" ${3:-} \
    > /dev/null 2>&1
  awk '/^(summary|totals):/ { print $2; exit }' "$OUT/cg"
}

printf '%-24s %6s %14s %14s %7s %5s\n' operation layout "instr/open" "bare/open" ratio goal
for op in $OPERATIONS; do
  for layout in $LAYOUTS; do
    dn=$(instructions "$op" "$layout"); bn=$(instructions "$op" "$layout" --bare)
    awk -v op="$op" -v l="$layout" -v dn="$dn" -v bn="$bn" -v n="$N" -v goal=1.3 \
      'BEGIN { d = dn / (n - 1); b = bn / (n - 1); r = d / b;
               printf "%-24s %6d %14.0f %14.0f %7.2f %5.1f%s\n", op, l, d, b, r, goal,
                      (r > goal || d > 16e6) ? " over" : "" }'
  done
done
