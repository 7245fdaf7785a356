#!/usr/bin/env bash
# Installs the dependencies, builds, and runs every test: the suite in a release
# build, the installed package from a consumer project, the suite again under
# AddressSanitizer and UndefinedBehaviorSanitizer, and a short run of each fuzz target.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh
jobs="$(nproc 2>/dev/null || echo 2)"

# ctest's summary lines are kept to give one closing count for the whole run.
summary="$(mktemp)"
trap 'rm -f "$summary"' EXIT
run_ctest() {
  ctest --test-dir "$1" --output-on-failure -j "$jobs" | tee -a "$summary"
}

echo "== release build and tests"
./scripts/build.sh release
run_ctest build

echo "== real files through the schema-less element, judged by Python's parser"
./scripts/roundtrip-real-files.sh

echo "== installed package: shared and static, CMake and pkg-config consumers"
./scripts/package-test.sh

echo "== sanitizer build and tests"
./scripts/build.sh sanitize
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
run_ctest build-sanitize

if command -v clang++ >/dev/null 2>&1; then
  echo "== fuzz targets (short runs)"
  ./scripts/build.sh fuzz >build-fuzz.log 2>&1 || { tail -40 build-fuzz.log; exit 1; }
  for target in build-fuzz/fuzz/*; do
    if [ -x "$target" ] && [ -f "$target" ]; then
      name="$(basename "$target")"
      corpus="fuzz/corpus/$name"
      mkdir -p "build-fuzz/corpus-$name"
      seeds=()
      [ -d "$corpus" ] && seeds+=("$corpus")
      # 20 s each keeps the whole set within a few minutes; scripts/fuzz.sh runs one for long.
      "$target" -max_total_time=20 -rss_limit_mb=2048 -timeout=25 "build-fuzz/corpus-$name" "${seeds[@]}" >/dev/null 2>"build-fuzz/$name.log" \
        || { tail -40 "build-fuzz/$name.log"; exit 1; }
      echo "$name: $(grep -E '^#[0-9]+' "build-fuzz/$name.log" | tail -1)"
    fi
  done
fi

# One closing line over both test runs.
total="$(grep -Eo 'tests failed out of [0-9]+' "$summary" | awk '{s += $5} END {print s + 0}')"
failed="$(grep -Eo '[0-9]+ tests failed out of' "$summary" | awk '{s += $1} END {print s + 0}')"
echo "tests: $((total - failed)) passed, $failed failed"
