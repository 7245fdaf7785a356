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
mkdir -p build/docs/generated/orvexxml
# Version.h is made by CMake at configure time; the reference documents it from the
# same template, filled with the project's version, without configuring a build.
version="$(sed -n 's/^project(OrvexXml VERSION \([0-9][0-9.]*\).*/\1/p' CMakeLists.txt)"
IFS=. read -r major minor patch <<<"$version"
sed -e "s/@PROJECT_VERSION_MAJOR@/$major/" -e "s/@PROJECT_VERSION_MINOR@/$minor/" \
    -e "s/@PROJECT_VERSION_PATCH@/$patch/" -e "s/@PROJECT_VERSION@/$version/" \
    cmake/Version.h.in >build/docs/generated/orvexxml/Version.h
export ORVEXXML_DOC_VERSION="$version"
if ! doxygen docs/Doxyfile; then
  echo "documentation warnings (build/docs/warnings.txt):" >&2
  head -40 build/docs/warnings.txt >&2
  exit 1
fi
echo "API reference: build/docs/html/index.html"
