# SPDX-License-Identifier: BSD-3-Clause
# shellcheck shell=bash disable=SC2034
# What every script that builds shares; to be sourced, from the top folder of the project.
# Sets `jobs`, `configure_options` and the compiler cache, which is used when it is there.

jobs=$(nproc 2>/dev/null || echo 2)
configure_options=()
if command -v ccache >/dev/null; then
    configure_options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    # Two checkouts in different folders share what they have compiled.
    export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$PWD}
    export CCACHE_NOHASHDIR=1
    export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS:-time_macros,include_file_mtime,include_file_ctime}
fi
