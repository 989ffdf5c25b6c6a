#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs what is missing, builds everything for Windows, runs the tests under Wine, compares the files that the library and
# its hosts write there with those that they write here, and tries the package. Arguments go to ctest, such as: -R files
#
# The libraries for Windows come from the prefix that ZYCORE_MINGW_PREFIX names; tools/windows/build-qt-mingw.sh makes one.
set -euo pipefail
cd "$(dirname "$0")/.."

prefix=${ZYCORE_MINGW_PREFIX:-}
if [ ! -d "$prefix/lib/cmake/Qt5Core" ]; then
    echo "ZYCORE_MINGW_PREFIX names no prefix with Qt for Windows: \"$prefix\"" >&2
    echo "tools/windows/build-qt-mingw.sh --install-packages makes one in half an hour." >&2
    exit 2
fi
scripts/install-dependencies.sh windows
. scripts/build-environment.sh

echo "Building for Windows in build/mingw"
cmake --preset mingw "${configure_options[@]}" -DZYCORE_MINGW_PREFIX="$prefix" --log-level=WARNING
cmake --build build/mingw --parallel "$jobs"
rm -rf build/mingw/results
ctest --test-dir build/mingw --parallel "$jobs" --output-on-failure --no-tests=error --progress "$@"

if compgen -G 'build/mingw/results/*.xml' >/dev/null; then
    sed -n 's/^<testsuites tests="\([0-9]*\)".*/\1/p' build/mingw/results/*.xml |
        awk '{ sum += $1 } END { print sum " tests of the framework run under Wine" }'
    grep -hc 'result="skipped"' build/mingw/results/*.xml |
        awk '{ sum += $1 } END { print sum " of them say that something is missing there" }'
fi
awk '/^[^#]/ { n[$2]++ } END { for (who in n) { print n[who] " lines of tests/windows/left-out.txt leave tests out for " who } }' \
    tests/windows/left-out.txt

[ $# = 0 ] || exit 0
echo "Building the same programs for this system in build/dev"
cmake --preset dev "${configure_options[@]}" --log-level=WARNING
cmake --build build/dev --parallel "$jobs" --target zytest_writeformats zyconvert zyanalyse
scripts/compare-systems.sh build/dev build/mingw
scripts/check-windows-package.sh build/mingw
