#!/usr/bin/env bash
# Builds the API reference from the public headers into build/docs/html.
# A public class or member without documentation fails the build.
set -euo pipefail
cd "$(dirname "$0")/.."
if ! command -v doxygen >/dev/null 2>&1; then
  sudo_cmd=()
  [ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get install -y --no-install-recommends doxygen >/dev/null
fi
mkdir -p build/docs
if ! doxygen docs/Doxyfile; then
  echo "documentation warnings (build/docs/warnings.txt):" >&2
  head -40 build/docs/warnings.txt >&2
  exit 1
fi
echo "API reference: build/docs/html/index.html"
