#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Packs a build for Windows, unpacks the package elsewhere, builds a program of someone else with it, and runs that with the DLLs
# of the package alone.
#
#   scripts/check-windows-package.sh BUILD_FOR_WINDOWS
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(cd "$1" && pwd)
scratch=$build/packed
rm -rf "$scratch"
mkdir -p "$scratch/unpacked"

cpack --config "$build/CPackConfig.cmake" -B "$scratch" >/dev/null
packages=("$scratch"/*.zip)
unzip -q "${packages[0]}" -d "$scratch/unpacked"
roots=("$scratch"/unpacked/*)
root=${roots[0]}

cmake -S tests/packaging/package -B "$scratch/consumer" -G Ninja -DCMAKE_BUILD_TYPE=Release --log-level=WARNING \
    -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64-x86_64.cmake" \
    -DZYCORE_MINGW_PREFIX="$(sed -n 's/^ZYCORE_MINGW_PREFIX:[A-Z]*=//p' "$build/CMakeCache.txt")" \
    -DZyCore_DIR="$root/lib/cmake/ZyCore" -DEXPECTED="$root" -DEXPECTED_KEELBASE="$root"
cmake --build "$scratch/consumer" >/dev/null
cp "$scratch/consumer/consumer.exe" "$root/bin/"
(cd "$root/bin" && unset WINEPATH && "$OLDPWD/tools/windows/wine-run" ./consumer.exe)
test -s "$root/bin/words.xlsx"
echo "$(basename "${packages[0]}"): a program built with it runs with its DLLs alone"
