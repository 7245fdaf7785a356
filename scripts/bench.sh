#!/usr/bin/env bash
# Builds and runs every benchmark program with the allocator settings that keep
# page faults of fresh memory out of the figures.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/install-deps.sh
./scripts/build.sh release
export GLIBC_TUNABLES=glibc.malloc.trim_threshold=4294967295:glibc.malloc.top_pad=268435456:glibc.malloc.mmap_threshold=33554432
for b in build/bench/*; do
  if [ -x "$b" ] && [ -f "$b" ]; then
    echo "== $(basename "$b")"
    "$b" "$@"
  fi
done
