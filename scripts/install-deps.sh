#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the benchmarks need.
# Safe to run repeatedly: it does nothing when every package is already present.
set -euo pipefail

packages=(
  build-essential cmake pkg-config
  libexpat1-dev libpcre2-dev zlib1g-dev
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  clang libclang-rt-dev
  tzdata doxygen
  # Used by tests only: xmllint judges written documents, the SAML schemas feed the generator.
  libxml2-utils opensaml-schemas xmltooling-schemas
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  SUDO="sudo"
fi

echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
