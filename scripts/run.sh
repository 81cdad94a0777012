#!/usr/bin/env bash
# Builds the program and runs its main job on a bundled sample sounding.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset default >/dev/null
cmake --build --preset default
sample=samples/three_layers.TX3
mkdir -p out
build/cmd/tellux-cli/tellux-cli forward "$sample" > out/three_layers_curve.json
echo "Computed the curve of $sample: out/three_layers_curve.json"
