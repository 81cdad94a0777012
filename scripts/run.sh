#!/usr/bin/env bash
# Builds the program and starts it. Without a display it runs the main job in batch instead: the
# bundled sample sounding's diagram, with its model's curve, steps and errors, as PNG and PDF.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset default >/dev/null
cmake --build --preset default
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec build/cmd/tellux/tellux
fi
sample=samples/three_layers.TX3
mkdir -p out
build/cmd/tellux-cli/tellux-cli plot "$sample" --steps --errors \
  --png out/three_layers.png --pdf out/three_layers.pdf > out/three_layers_plot.json
build/cmd/tellux-cli/tellux-cli forward "$sample" > out/three_layers_curve.json
echo "No display: drew the diagram of $sample instead of starting the program."
echo "  picture: out/three_layers.png"
echo "  page:    out/three_layers.pdf"
echo "  curve:   out/three_layers_curve.json"
echo "  drawing: out/three_layers_plot.json"
