#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs what is missing, builds everything and runs the tests. Arguments go to ctest, such as: -R core.ZyString
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-dependencies.sh test
. scripts/build-environment.sh

echo "Building in build/dev"
cmake --preset dev "${configure_options[@]}" --log-level=WARNING
cmake --build build/dev --parallel "$jobs"
ctest --test-dir build/dev --parallel "$jobs" --output-on-failure --progress "$@"
