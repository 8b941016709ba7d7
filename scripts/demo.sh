#!/usr/bin/env bash
# Installs the dependencies, builds and starts the demo host.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
BUILD=${BUILD_DIR:-build}
cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo}
cmake --build "$BUILD" -j2 --target veld-demo veld5DlgCE
exec "$BUILD/bin/veld-demo" "$@"
