#!/usr/bin/env bash
# Installs the dependencies, builds, and runs the main demo. Arguments go to the demo.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/install-deps.sh
./scripts/build.sh release
./build/tools/orvex-demo "$@"
