#!/usr/bin/env bash
# Builds the program and its tests with warnings as errors, once normally and once with
# AddressSanitizer and UBSan, and runs every test under both.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
# Tests never touch the user's settings; the leak checker passes over what the font and windowing
# libraries keep for the life of the process.
export TELLUX_INI="${TMPDIR:-/tmp}/tellux-test-$$.ini"
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
export QT_QPA_PLATFORM=offscreen
for preset in ci ci-asan; do
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
  # Only failures and the summary: passing tests say nothing.
  ctest --preset "$preset" -j2 | grep -v -E '^ *(Start +[0-9]+:|[0-9]+/[0-9]+ Test +#[0-9]+: .* Passed)'
done
# The tests' share of the code: at most 35 %.
scripts/test-share.sh
