#!/usr/bin/env bash
# Installs the dependencies, builds, and runs every test: the suite in a release
# build, the installed package from a consumer project, the suite again under
# AddressSanitizer and UndefinedBehaviorSanitizer, and a short run of each fuzz target.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh
jobs="$(nproc 2>/dev/null || echo 2)"

echo "== release build and tests"
./scripts/build.sh release
ctest --test-dir build --output-on-failure -j "$jobs"

echo "== installed package"
rm -rf build/install build/consumer
cmake --install build --prefix "$PWD/build/install" >/dev/null
cmake -S tests/package -B build/consumer -DCMAKE_PREFIX_PATH="$PWD/build/install" >/dev/null
cmake --build build/consumer >/dev/null
LD_LIBRARY_PATH="$PWD/build/install/lib:$PWD/build/install/lib64${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}" ./build/consumer/consumer

echo "== sanitizer build and tests"
./scripts/build.sh sanitize
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir build-sanitize --output-on-failure -j "$jobs"

if command -v clang++ >/dev/null 2>&1; then
  echo "== fuzz targets (short runs)"
  ./scripts/build.sh fuzz
  for target in build-fuzz/fuzz/*; do
    if [ -x "$target" ] && [ -f "$target" ]; then
      name="$(basename "$target")"
      corpus="fuzz/corpus/$name"
      mkdir -p "build-fuzz/corpus-$name"
      seeds=()
      [ -d "$corpus" ] && seeds+=("$corpus")
      "$target" -max_total_time=20 -rss_limit_mb=2048 "build-fuzz/corpus-$name" "${seeds[@]}" >/dev/null 2>"build-fuzz/$name.log" \
        || { tail -40 "build-fuzz/$name.log"; exit 1; }
      echo "$name: $(grep -E '^#[0-9]+' "build-fuzz/$name.log" | tail -1)"
    fi
  done
fi
