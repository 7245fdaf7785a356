#!/usr/bin/env bash
# Installs the library as a shared and as a static build and builds a consumer
# against each: through find_package with g++ and clang++, and through pkg-config.
# Usage: scripts/package-test.sh   (expects ./scripts/build.sh release to have run)
set -euo pipefail
cd "$(dirname "$0")/.."
root="$PWD/build/package"
rm -rf "$root"
mkdir -p "$root"

launcher=()
if command -v ccache >/dev/null 2>&1; then
  launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
fi

cmake --install build --prefix "$root/shared" >/dev/null
cmake -S . -B build-static -DBUILD_SHARED_LIBS=OFF -DCMAKE_BUILD_TYPE=Release \
  -DORVEX_BUILD_TESTS=OFF -DORVEX_BUILD_BENCH=OFF -DORVEX_BUILD_EXAMPLES=OFF "${launcher[@]}" >/dev/null
cmake --build build-static -j "$(nproc 2>/dev/null || echo 2)" >/dev/null
cmake --install build-static --prefix "$root/static" >/dev/null

sample="$PWD/examples/library/library.xml"
compilers=(g++)
command -v clang++ >/dev/null 2>&1 && compilers+=(clang++)

for kind in shared static; do
  prefix="$root/$kind"
  export LD_LIBRARY_PATH="$prefix/lib:$prefix/lib64${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}"
  for cxx in "${compilers[@]}"; do
    dir="$root/cmake-$kind-$cxx"
    cmake -S tests/package -B "$dir" -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
    cmake --build "$dir" >/dev/null
    echo "cmake consumer, $kind, $cxx: $("$dir/consumer" "$sample")"
  done
  pcdir="$(dirname "$(find "$prefix" -name orvexxml.pc | head -1)")"
  static_flag=()
  [ "$kind" = static ] && static_flag=(--static)
  flags="$(PKG_CONFIG_PATH="$pcdir" pkg-config "${static_flag[@]}" --cflags --libs orvexxml)"
  # shellcheck disable=SC2086
  # Without CMake the installed generator is run by hand.
  "$prefix/bin/orvex-gen" --namespace OrvexExamples --include-prefix examples/library \
    -o "$root/pc-gen-$kind/examples/library" "$prefix/share/orvexxml/examples/library/library.xsd=Library"
  g++ -std=c++17 -Wall -Wextra -o "$root/pc-$kind" tests/package/consumer.cpp \
    "$root/pc-gen-$kind/examples/library/Library.cpp" -I"$root/pc-gen-$kind" $flags
  echo "pkg-config consumer, $kind: $("$root/pc-$kind" "$sample")"
done
