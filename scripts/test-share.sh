#!/usr/bin/env bash
# Prints the tests' share of the code: lines of *.cpp and *.h under tests/ against those under
# src/ and cmd/, counting neither blank lines nor lines that hold only a comment. Fails above 35 %.
set -euo pipefail
cd "$(dirname "$0")/.."
code_lines() {
  find "$@" -type f \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 cat | awk '
      /^[[:space:]]*\/\*/ { block = 1 }
      block { if ($0 ~ /\*\//) block = 0; next }
      /^[[:space:]]*(\/\/.*)?$/ { next }
      { n++ }
      END { print n + 0 }'
}
tests=$(code_lines tests)
code=$(code_lines src cmd)
share=$((tests * 1000 / code))
printf 'tests: %d lines, code: %d lines, share %d.%d %% (at most 35 %%)\n' \
  "$tests" "$code" $((share / 10)) $((share % 10))
[ "$share" -le 350 ]
