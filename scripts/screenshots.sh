#!/usr/bin/env bash
# Renders the pictures README shows: the demo window on the sample drawing,
# and every built dialog in its four layouts with the steps the operation
# catalogue gives its pictures (veld-play --shots; automation/OperationCatalogue.cpp).
# Run after a build (BUILD_DIR, default build); writes docs/screenshots/.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD=${BUILD_DIR:-build}
OUT=docs/screenshots
mkdir -p "$OUT"
export QT_QPA_PLATFORM=offscreen
VELD_DEMO_SHOT="$OUT/demo.png" "$BUILD/bin/veld-demo"
"$BUILD/bin/veld-play" --shots "$OUT" >/dev/null
ls "$OUT"
