#!/usr/bin/env bash
# Renders the pictures README shows: the demo window on the sample drawing and
# every built dialog in a portrait and a landscape layout (the pickers in all
# four), through veld-play.
# Run after a build (BUILD_DIR, default build); writes docs/screenshots/.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD=${BUILD_DIR:-build}
OUT=docs/screenshots
mkdir -p "$OUT"
export QT_QPA_PLATFORM=offscreen
VELD_DEMO_SHOT="$OUT/demo.png" "$BUILD/bin/veld-demo"
script=$(mktemp)
trap 'rm -f "$script"' EXIT
for layout in 0 2; do
  cat >>"$script" <<SCRIPT
layout $layout
call ShowDlgGetDouble title="Height" value=12.5
  shot "$OUT/get-double-$layout.png"
  close
end
call ShowDlgRotate angle=30
  shot "$OUT/rotate-$layout.png"
  close
end
call ShowDlgGetString caption="Point name" text="P101"
  shot "$OUT/get-string-$layout.png"
  close
end
call GetDlgPasswordRequest
  shot "$OUT/password-$layout.png"
  close
end
SCRIPT
done
# The pickers, the layers and line types dialogs and the drafting aids (grid
# and snap with each page, object snap, point entry, angle system, text
# insertion) in all four layouts, on
# the sample's layers and line types and the default library (which holds
# text line types).
for layout in 0 1 2 3; do
  cat >>"$script" <<SCRIPT
layout $layout
call ShowDlgColor start=256 byLayer=3
  press 11192 0.3 0.5
  shot "$OUT/color-$layout.png"
  close
end
call ShowDlgSelLtype preset=GAS_LINE
  shot "$OUT/sel-ltype-$layout.png"
  close
end
call ShowDlgLoadLtype
  check 2000 1
  key 2000 Down
  shot "$OUT/load-ltype-$layout.png"
  close
end
call ShowDlgLayer
  tap 1129 4 3
  tap 1129 4 3
  shot "$OUT/layers-$layout.png"
  close
end
call ShowDlgLtype
  tap 11126 12 0
  shot "$OUT/ltypes-$layout.png"
  close
end
call ShowDlgGridProp
  shot "$OUT/grid-snap-$layout.png"
  tab 11172 1
  shot "$OUT/grid-grid-$layout.png"
  close
end
call ShowDlgOSnap
  shot "$OUT/osnap-$layout.png"
  close
end
call ShowDlSnapInsertPnt x=1250.5 y=-310.25 z=12
  shot "$OUT/snap-point-$layout.png"
  close
end
call ShowDlgAngle
  shot "$OUT/angle-$layout.png"
  close
end
call ShowDlgInsText x=40 y=25
  type 11139 "PLOT 12"
  type 11146 "Survey 2026"
  shot "$OUT/ins-text-$layout.png"
  close
end
SCRIPT
done
"$BUILD/bin/veld-play" --sample "$script" >/dev/null
ls "$OUT"
