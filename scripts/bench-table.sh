#!/usr/bin/env bash
# The table of reading and writing figures: runs bench/BindingTableBench (speed of
# FromXml and ToXml as a fraction of raw Expat's, peak heap while reading), then,
# where valgrind is installed, counts with callgrind the instructions per byte of
# each operation on the 1 MB documents and the instructions of reading the 1 KB
# ones. Usage: scripts/bench-table.sh [build dir] [benchmark flags...]
set -euo pipefail
cd "$(dirname "$0")/.."
dir="${1:-build}"
shift || true
program="$dir/bench/BindingTableBench"
if [ ! -x "$program" ]; then
  cmake --build "$dir" -j2 --target BindingTableBench
fi
export GLIBC_TUNABLES=glibc.malloc.trim_threshold=4294967295:glibc.malloc.top_pad=268435456:glibc.malloc.mmap_threshold=33554432
"$program" "$@"

if ! command -v valgrind >/dev/null 2>&1; then
  echo "valgrind is not installed: no instruction counts"
  exit 0
fi
out="$(mktemp -d)"
trap 'rm -rf "$out"' EXIT
echo
printf '%-16s %-6s %14s %12s\n' document op instructions per-byte
for document in po-1mb library-1mb po-1kb library-1kb; do
  for op in expat read write; do
    bytes="$(valgrind --tool=callgrind --toggle-collect=OrvexMeasuredRun --callgrind-out-file="$out/cg" \
      "$program" --measure="$document:$op" 2>/dev/null | sed -n 's/^bytes //p')"
    total="$(sed -n 's/^totals: *\([0-9]*\).*/\1/p' "$out/cg")"
    [ -n "$total" ] || total="$(sed -n 's/^summary: *\([0-9]*\).*/\1/p' "$out/cg")"
    awk -v d="$document" -v o="$op" -v t="$total" -v b="$bytes" \
      'BEGIN { printf "%-16s %-6s %14d %12.1f\n", d, o, t, t / b }'
  done
done
