#!/usr/bin/env bash
# Configures and builds one build tree. Usage: scripts/build.sh [release|sanitize|tsan|fuzz]
set -euo pipefail
cd "$(dirname "$0")/.."

kind="${1:-release}"
jobs="$(nproc 2>/dev/null || echo 2)"
case "$kind" in
  release)  dir=build;          args=(-DCMAKE_BUILD_TYPE=RelWithDebInfo) ;;
  sanitize) dir=build-sanitize; args=(-DCMAKE_BUILD_TYPE=Debug -DORVEX_SANITIZE=ON -DORVEX_BUILD_BENCH=OFF) ;;
  # ThreadSanitizer: the test program only, for the tests that share objects between threads.
  tsan)     dir=build-tsan;     args=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DORVEX_TSAN=ON -DORVEX_BUILD_BENCH=OFF
                                      -DORVEX_BUILD_EXAMPLES=OFF) ;;
  fuzz)     dir=build-fuzz;     args=(-DCMAKE_BUILD_TYPE=Debug -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++
                                      -DORVEX_SANITIZE=ON -DORVEX_BUILD_FUZZ=ON -DORVEX_BUILD_TESTS=OFF
                                      -DORVEX_BUILD_BENCH=OFF -DORVEX_BUILD_EXAMPLES=OFF) ;;
  *) echo "usage: $0 [release|sanitize|tsan|fuzz]" >&2; exit 2 ;;
esac

# ccache, where installed, keeps rebuilds of several work trees cheap.
if command -v ccache >/dev/null 2>&1; then
  args+=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
cmake -S . -B "$dir" "${args[@]}" >/dev/null
if [ "$kind" = tsan ]; then
  cmake --build "$dir" --target orvex_tests -j "$jobs"
else
  cmake --build "$dir" -j "$jobs"
fi
