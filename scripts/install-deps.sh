#!/usr/bin/env bash
# Installs the Debian packages the build needs (the list is .ci/packages.txt).
set -euo pipefail
cd "$(dirname "$0")/.."
if [ "$(id -u)" = 0 ]; then SUDO=; else SUDO=sudo; fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update
$SUDO apt-get install -y --no-install-recommends $(cat .ci/packages.txt)
