#!/usr/bin/env bash
# Installs the Debian packages the build needs (the list is .ci/packages.txt).
set -euo pipefail
cd "$(dirname "$0")/.."
if [ "$(id -u)" = 0 ]; then SUDO=; else SUDO=sudo; fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update
$SUDO apt-get install -y --no-install-recommends $(cat .ci/packages.txt)
# A decimal-comma locale: the test suite runs once more in it (numbers in
# files and tool output must not follow the user's locale).
if ! locale -a 2>/dev/null | grep -qix 'it_IT\.utf-\?8'; then
  $SUDO localedef -i it_IT -f UTF-8 it_IT.UTF-8
fi
