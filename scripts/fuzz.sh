#!/usr/bin/env bash
# Builds the fuzz targets with clang, libFuzzer, AddressSanitizer and UBSan, and runs each for
# SECONDS (default 60) or a million executions, whichever comes first, on its corpus under tests/fuzz/. New inputs go to build-fuzz/corpus/, and a
# crash leaves its reproducer in build-fuzz/; copy reproducers into the target's corpus folder so
# that the replay test keeps them.
#   scripts/fuzz.sh [SECONDS] [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
shift || true
export CC=clang-14 CXX=clang++-14
flags="-fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=undefined -g -O1"
cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTELLUX_FUZZ=ON -DTELLUX_BENCH=OFF \
  -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" >/dev/null
targets=("$@")
[ ${#targets[@]} -eq 0 ] && targets=(tx3 txw txe sev ini spreads syscal res2dinv sheet abem sas1000
  geotrade pasi astier oyo val)
cmake --build build-fuzz --target "${targets[@]/#/fuzz_}"
export QT_QPA_PLATFORM=offscreen TELLUX_INI=/tmp/tellux-fuzz-$$.ini
root=$PWD
for t in "${targets[@]}"; do
  # The converters write into the current folder: a scratch one, with absolute corpus paths.
  mkdir -p "build-fuzz/corpus/$t" "build-fuzz/scratch"
  echo "== $t"
  (cd build-fuzz/scratch && "$root/build-fuzz/tests/fuzz_$t" -max_total_time="$seconds" -runs=1000000 \
    -max_len=65536 -timeout=5 -rss_limit_mb=2048 -print_final_stats=1 \
    "$root/build-fuzz/corpus/$t" "$root/tests/fuzz/$t" 2>&1 |
    grep -E "^(stat::number_of_executed_units|stat::peak_rss_mb|#[0-9]+[[:space:]]+DONE)|ERROR|SUMMARY" || true)
done
