#!/usr/bin/env bash
# Builds the library without the tests (no GoogleTest needed), installs it
# into a temporary prefix, and builds and runs a small host project against
# the installed package with find_package, then starts the installed demo.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD=${PACKAGE_BUILD_DIR:-build-package}
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVELD_BUILD_TESTS=OFF
cmake --build "$BUILD" -j2
cmake --install "$BUILD" --prefix "$WORK/prefix"
cmake -S tests/package -B "$WORK/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$WORK/prefix"
cmake --build "$WORK/consumer"
"$WORK/consumer/veld-consumer"
QT_QPA_PLATFORM=offscreen VELD_DEMO_SMOKE=1 "$WORK/prefix/bin/veld-demo"
echo "package: installed, found and used"
