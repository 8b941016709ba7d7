#!/usr/bin/env bash
# Builds everything and runs the whole test suite headless.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD=${BUILD_DIR:-build}
cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo}
cmake --build "$BUILD" -j2
QT_QPA_PLATFORM=offscreen ctest --test-dir "$BUILD" --output-on-failure -j2
