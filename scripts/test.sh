#!/usr/bin/env bash
# Builds the program and its tests with warnings as errors, once normally and once with
# AddressSanitizer and UBSan, and runs every test under both.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
for preset in ci ci-asan; do
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
  ctest --preset "$preset" -j2
done
