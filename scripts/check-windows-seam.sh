#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Cross-compiles the border to the system on Windows (src/Platform/windows, keelbase) with mingw-w64, and runs its tests where
# Wine is installed. Needs no libraries for Windows.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/build-environment.sh

if ! command -v x86_64-w64-mingw32-g++-posix >/dev/null; then
    echo "No mingw-w64 here (g++-mingw-w64-x86-64-posix): nothing is checked" >&2
    exit 2
fi
cmake -S tests/windows/seam -B build/seam -G Ninja -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64-x86_64.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DZYCORE_WARNINGS_AS_ERRORS=ON "${configure_options[@]}" --log-level=WARNING
cmake --build build/seam --parallel "$jobs"
if command -v wine >/dev/null; then
    ctest --test-dir build/seam --output-on-failure --no-tests=error
else
    echo "No Wine here: built, and not run"
fi
