#!/usr/bin/env bash
# A long run of one fuzz target. Usage: scripts/fuzz.sh TARGET MINUTES
# Builds build-fuzz/ when needed, keeps what the run finds in build-fuzz/corpus-TARGET
# (seeded from fuzz/corpus/TARGET), writes the log to build-fuzz/TARGET.long.log and
# prints the closing figures: executions, coverage (cov) and features (ft).
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -ne 2 ] || ! [[ "$2" =~ ^[0-9]+$ ]]; then
  echo "usage: $0 TARGET MINUTES" >&2
  exit 2
fi
name="$1"
minutes="$2"
target="build-fuzz/fuzz/$name"
if [ ! -x "$target" ]; then
  ./scripts/build.sh fuzz >build-fuzz.log 2>&1 || { tail -40 build-fuzz.log; exit 1; }
fi
[ -x "$target" ] || { echo "no fuzz target $name" >&2; exit 2; }

corpus="build-fuzz/corpus-$name"
mkdir -p "$corpus" "build-fuzz/artifacts-$name"
seeds=()
[ -d "fuzz/corpus/$name" ] && seeds+=("fuzz/corpus/$name")
options=()
[ -f "fuzz/$name.dict" ] && options+=("-dict=fuzz/$name.dict")
log="build-fuzz/$name.long.log"
status=0
"$target" -max_total_time=$((minutes * 60)) -rss_limit_mb=2048 -timeout=25 -print_final_stats=1 \
  -artifact_prefix="build-fuzz/artifacts-$name/" "${options[@]}" "$corpus" "${seeds[@]}" >/dev/null 2>"$log" || status=$?
if [ "$status" -ne 0 ]; then
  tail -60 "$log"
  echo "$name: failed; the input is in build-fuzz/artifacts-$name/" >&2
  exit "$status"
fi
last="$(grep -E '^#[0-9]+' "$log" | tail -1)"
execs="$(grep -E '^stat::number_of_executed_units' "$log" | awk '{print $2}')"
echo "$name: $minutes min, $execs executions; $last"
