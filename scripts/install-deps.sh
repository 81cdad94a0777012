#!/usr/bin/env bash
# Installs what building, testing and running the program need on a Debian machine. Does nothing
# when everything is there already.
set -euo pipefail

packages=(cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev
          qt6-base-dev qt6-svg-dev qt6-pdf-dev libcli11-dev nlohmann-json3-dev libgl-dev fonts-liberation xvfb xauth clang-format
          qt6-translations-l10n)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
# Another install may hold the package manager: wait for it (up to 10 minutes) instead of failing.
lock=(-o DPkg::Lock::Timeout=600)
$sudo apt-get "${lock[@]}" update -qq
$sudo apt-get "${lock[@]}" install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
