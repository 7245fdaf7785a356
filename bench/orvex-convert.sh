#!/usr/bin/env bash
# Times `orvex convert` of the ~20 MB purchase order to Fast Infoset+gzip and back,
# beside gzip -1 and gzip -d of the same file: the best wall-clock time of a few runs.
# Usage: bench/orvex-convert.sh [ORVEX] [RUNS]   (default build/tools/orvex, 5)
set -euo pipefail
cd "$(dirname "$0")/.."
orvex="$(realpath "${1:-build/tools/orvex}")"
runs="${2:-5}"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
python3 bench/make-large-order.py 130000 "$work/po.xml"

# Best of $runs wall-clock seconds of the command.
best() {
  local best="" start end took
  for _ in $(seq "$runs"); do
    start=$(date +%s.%N)
    "$@" >/dev/null
    end=$(date +%s.%N)
    took=$(echo "$end - $start" | bc)
    if [ -z "$best" ] || [ "$(echo "$took < $best" | bc)" = 1 ]; then best=$took; fi
  done
  printf '%.3f' "$best"
}

cd "$work"
t1=$(best "$orvex" convert po.xml po.finf.gz --to fi --gzip)
t2=$(best "$orvex" convert po.finf.gz back.xml)
t3=$(best sh -c 'gzip -1 -c po.xml > po.xml.gz')
t4=$(best sh -c 'gzip -d -c po.xml.gz > unzipped.xml')
size() { stat -c %s "$1"; }
printf 'input            %10d bytes of formatted XML\n' "$(size po.xml)"
printf 'orvex to FI+gzip %8s s  -> %9d bytes\n' "$t1" "$(size po.finf.gz)"
printf 'orvex back to XML%8s s  -> %9d bytes\n' "$t2" "$(size back.xml)"
printf 'gzip -1          %8s s  -> %9d bytes\n' "$t3" "$(size po.xml.gz)"
printf 'gzip -d          %8s s\n' "$t4"
