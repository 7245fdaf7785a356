#!/usr/bin/env bash
# Installs the dependencies, builds, and runs every test: the suite in a release
# build, the installed package from a consumer project, classes generated from the
# SAML 2.0 schemas with real documents, the suite again under
# AddressSanitizer and UndefinedBehaviorSanitizer, the tests that share objects between
# threads under ThreadSanitizer, and a short run of each fuzz target.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh
# The Fast Infoset oracle beside the work tree compiles itself on first use; done here
# once, so that tests running side by side do not each start that build.
oracle="../shared/tools/fi-oracle/fi-oracle"
if [ -x "$oracle" ] && command -v java >/dev/null 2>&1; then
  "$oracle" --help >/dev/null 2>&1 || echo "fi-oracle does not build; its tests will say so" >&2
fi
jobs="$(nproc 2>/dev/null || echo 2)"

# ctest's summary lines are kept to give one closing count for the whole run.
summary="$(mktemp)"
trap 'rm -f "$summary"' EXIT
run_ctest() {
  ctest --test-dir "$1" --output-on-failure -j "$jobs" | tee -a "$summary"
}
# A GoogleTest program run directly; its count goes to the summary in ctest's words.
run_gtest() {
  local log status=0 passed failed
  log="$(mktemp)"
  "$@" >"$log" 2>&1 || status=$?
  tail -n 15 "$log"
  # grep finds nothing on a clean run; under pipefail that must not end the script.
  passed="$( { grep -Eo '^\[  PASSED  \] [0-9]+' "$log" || true; } | awk '{s += $4} END {print s + 0}')"
  failed="$( { grep -Eo '^\[  FAILED  \] [0-9]+ tests?, listed below' "$log" || true; } | awk '{s += $4} END {print s + 0}')"
  # A sanitizer report ends the program before GoogleTest counts: one failure.
  if [ "$status" -ne 0 ] && [ "$failed" -eq 0 ]; then failed=1; fi
  rm -f "$log"
  echo "$failed tests failed out of $((passed + failed))" | tee -a "$summary"
  return "$status"
}

echo "== release build and tests"
./scripts/build.sh release
run_ctest build

echo "== API reference: every public member documented"
./scripts/docs.sh >build-docs.log 2>&1 || { tail -40 build-docs.log; exit 1; }

echo "== real files through the schema-less element, judged by Python's parser"
./scripts/roundtrip-real-files.sh

echo "== installed package: shared and static, CMake and pkg-config consumers"
./scripts/package-test.sh

echo "== SAML 2.0 schemas through orvex-gen: documents read, written, validated, compared"
./scripts/saml-roundtrip.sh

echo "== sanitizer build and tests"
./scripts/build.sh sanitize
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
run_ctest build-sanitize

echo "== thread sanitizer build and the threads tests"
./scripts/build.sh tsan
TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1 run_gtest ./build-tsan/tests/orvex_tests --gtest_filter='Threads*'

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
      options=()
      [ -f "fuzz/$name.dict" ] && options+=("-dict=fuzz/$name.dict")
      # 20 s each keeps the whole set within a few minutes; scripts/fuzz.sh runs one for long.
      # The fast XML reader's differential target gets longer: it is what shows that the
      # fast reader builds Expat's tree.
      seconds=20
      [ "$name" = FastXmlReaderFuzz ] && seconds=90
      # A fixed seed makes a failure here one that the next run repeats.
      "$target" -seed=1 -max_total_time="$seconds" -rss_limit_mb=2048 -timeout=25 -artifact_prefix=build-fuzz/ \
        "${options[@]}" "build-fuzz/corpus-$name" "${seeds[@]}" >/dev/null 2>"build-fuzz/$name.log" \
        || { tail -40 "build-fuzz/$name.log"; exit 1; }
      echo "$name: $(grep -E '^#[0-9]+' "build-fuzz/$name.log" | tail -1)"
    fi
  done
  # The fast XML reader against Expat on real documents too: given files, the
  # differential target runs each one once and stops at the first disagreement.
  mapfile -t realFiles < <(find /usr/share/mime/packages /etc/fonts /usr/share/fontconfig/conf.avail \
    /usr/share/xml/iso-codes /usr/share/glib-2.0/schemas /usr/share/polkit-1/actions examples tests fuzz/corpus \
    -maxdepth 3 -type f \( -name '*.xml' -o -name '*.conf' \) 2>/dev/null)
  build-fuzz/fuzz/FastXmlReaderFuzz "${realFiles[@]}" >/dev/null 2>build-fuzz/FastXmlReaderFuzz.real.log \
    || { tail -40 build-fuzz/FastXmlReaderFuzz.real.log; exit 1; }
  echo "FastXmlReaderFuzz: ${#realFiles[@]} real documents, no disagreement with Expat"
fi

# One closing line over both test runs.
total="$(grep -Eo 'tests failed out of [0-9]+' "$summary" | awk '{s += $5} END {print s + 0}')"
failed="$(grep -Eo '[0-9]+ tests failed out of' "$summary" | awk '{s += $1} END {print s + 0}')"
echo "tests: $((total - failed)) passed, $failed failed"
