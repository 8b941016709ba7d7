#!/usr/bin/env bash
# Installs the dependencies, checks the formatting, builds everything and runs
# the whole test suite headless, twice: in the machine's locale and in a
# decimal-comma one. Then checks the installable package.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/check-format.sh
BUILD=${BUILD_DIR:-build}
cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo}
cmake --build "$BUILD" -j2
QT_QPA_PLATFORM=offscreen ctest --test-dir "$BUILD" --output-on-failure -j2
# Once more where the decimal separator is a comma, as for many of our users.
LC_ALL=it_IT.UTF-8 QT_QPA_PLATFORM=offscreen ctest --test-dir "$BUILD" --output-on-failure -j2
bash scripts/check-package.sh
