#!/usr/bin/env bash
# Installs the dependencies, checks the formatting, builds everything and runs
# the whole test suite headless three times: under C.UTF-8, C and a
# decimal-comma locale. Then checks the installable package.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/check-format.sh
BUILD=${BUILD_DIR:-build}
cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo}
cmake --build "$BUILD" -j2
# Three locales: UTF-8 without a language, the bare C locale (no case
# mapping beyond ASCII, no UTF-8) and one whose decimal separator is a comma,
# as for many of our users. Names, numbers and files behave alike in all.
for locale in C.UTF-8 C it_IT.UTF-8; do
  echo "== tests under LC_ALL=$locale"
  LC_ALL=$locale QT_QPA_PLATFORM=offscreen ctest --test-dir "$BUILD" --output-on-failure -j2
done
bash scripts/check-package.sh
