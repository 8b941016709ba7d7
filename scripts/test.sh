#!/usr/bin/env bash
# Installs the dependencies, builds everything and runs the whole test suite
# headless.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
BUILD=${BUILD_DIR:-build}
cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo}
cmake --build "$BUILD" -j2
QT_QPA_PLATFORM=offscreen ctest --test-dir "$BUILD" --output-on-failure -j2
