#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Builds the fuzz targets and runs them, two at a time on two cores.
#
#   scripts/fuzz.sh [--seconds <n>] [target...]
#
# Without --seconds each target makes its fixed number of executions from a fixed seed: the seeds of fuzz/corpus and what
# was found before (tests/data/fuzz) first. With it, each runs so long from a random seed and keeps what it learns in
# build/fuzz/learnt. An input that is a finding is written to build/fuzz/findings; to run it again:
#
#   build/fuzz/fuzz/zyfuzz_<target> build/fuzz/findings/<target>-crash-...
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/build-environment.sh

seconds=0
if [ "${1:-}" = --seconds ]; then
    seconds=$2
    shift 2
fi
all=(base64 csv config path zip xmlreader xmlloader xmldom msw datetime)
targets=("$@")
[ $# -gt 0 ] || targets=("${all[@]}")

# settings <target>: the executions that are enough to notice what breaks, and the longest input.
settings() {
    case $1 in
    base64) runs=100000 length=256 ;;
    csv) runs=30000 length=512 ;;
    config) runs=50000 length=256 ;;
    path) runs=30000 length=256 ;;
    zip) runs=6000 length=4096 ;;
    xmlreader) runs=10000 length=1024 ;;
    xmlloader) runs=4000 length=1024 ;;
    xmldom) runs=20000 length=1024 ;;
    msw) runs=8000 length=1024 ;;
    datetime) runs=30000 length=64 ;;
    *)
        echo "No such target: $1 (there are: ${all[*]})" >&2
        return 2
        ;;
    esac
}

for target in "${targets[@]}"; do
    settings "$target"
done
cmake --preset fuzz "${configure_options[@]}" --log-level=WARNING >/dev/null
cmake --build build/fuzz --parallel "$jobs" --target "${targets[@]/#/zyfuzz_}" -- --quiet

# Files of the targets: in memory where there is a place for it.
place=${TMPDIR:-/tmp}
[ -w /dev/shm ] && place=/dev/shm
scratch=$(mktemp -d "$place/zyfuzz.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
mkdir -p build/fuzz/findings

# run <target>
run() {
    local target=$1 runs length options inputs log=build/fuzz/$1.log began=$SECONDS
    settings "$target"
    options=(-max_len="$length" -timeout=20 -rss_limit_mb=768 -malloc_limit_mb=256 -print_final_stats=1
        -artifact_prefix=build/fuzz/findings/"$target"-)
    [ -f fuzz/dictionaries/"$target".dict ] && options+=(-dict=fuzz/dictionaries/"$target".dict)
    if [ "$seconds" = 0 ]; then
        inputs=("$scratch/$target.learnt")
        options+=(-seed=1 -runs="$runs")
    else
        inputs=(build/fuzz/learnt/"$target")
        options+=(-max_total_time="$seconds")
    fi
    mkdir -p "$scratch/$target" "${inputs[0]}"
    inputs+=(fuzz/corpus/"$target")
    [ -d tests/data/fuzz/"$target" ] && inputs+=(tests/data/fuzz/"$target")
    if TMPDIR=$scratch/$target QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=quarantine_size_mb=64 UBSAN_OPTIONS=print_stacktrace=1 \
        build/fuzz/fuzz/zyfuzz_"$target" "${options[@]}" "${inputs[@]}" >"$log" 2>&1; then
        printf '%s: %s executions, %d s\n' "$target" \
            "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")" $((SECONDS - began))
    else
        printf '%s: a finding; the end of %s:\n' "$target" "$log"
        tail -n 60 "$log"
        return 1
    fi
}

# At most as many at a time as there are cores.
status=0
running=0
for target in "${targets[@]}"; do
    if [ $running -ge "$jobs" ]; then
        wait -n || status=1
        running=$((running - 1))
    fi
    run "$target" &
    running=$((running + 1))
done
while [ $running -gt 0 ]; do
    wait -n || status=1
    running=$((running - 1))
done
exit $status
