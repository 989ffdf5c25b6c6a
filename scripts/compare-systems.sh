#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Lets the programs of two build trees, one for this system and one for Windows, write the same files, and compares them byte
# for byte. HTML pages are texts of their system: there the lines end with CR LF on Windows, and the rest is compared.
#
#   scripts/compare-systems.sh BUILD_HERE BUILD_FOR_WINDOWS
set -euo pipefail
cd "$(dirname "$0")/.."
here=$1
windows=$2
scratch=$windows/compared
rm -rf "$scratch"
mkdir -p "$scratch/here" "$scratch/windows"

wine_run() {
    tools/windows/wine-run --libraries \
        "$(sed -n 's/^ZYCORE_MINGW_PREFIX:[A-Z]*=//p' "$windows/CMakeCache.txt")/bin" "$@"
}

# both <program here> <argument>...: once on each system; @ in an argument is the folder to write to.
both() {
    local program=$1
    shift
    QT_QPA_PLATFORM=offscreen "$here/$program" "${@//@/$scratch/here}" >/dev/null
    wine_run "$windows/bin/$(basename "$program").exe" "${@//@/$scratch/windows}" >/dev/null
}

both tests/formats/zytest_writeformats @
both examples/convert/zyconvert --header 1 --sheet CO2 examples/convert/data/co2-mm-mlo.csv \
    @/co2.xlsx @/co2.xml @/co2.zyt.xml @/co2.csv
for mode in "montecarlo --runs 200" worstcase sensitivity; do
    # shellcheck disable=SC2086  # a mode and its options
    both examples/montecarlo/zyanalyse examples/montecarlo/data/sallen-key.xml --mode $mode --out @
done

status=0
compared=0
for file in "$scratch"/here/*; do
    name=$(basename "$file")
    other=$scratch/windows/$name
    case $name in
    *.png) continue ;; # letters are drawn with the fonts of each system
    *.html)
        if [ "$(grep -c $'\r$' "$other")" != "$(wc -l <"$other")" ]; then
            echo "$name: not all lines end with CR LF on Windows"
            status=1
        fi
        sed -i 's/\r$//' "$other"
        ;;
    esac
    compared=$((compared + 1))
    cmp "$file" "$other" || status=1
done
echo "$compared files of both systems compared: $([ $status = 0 ] && echo "the same bytes" || echo "they DIFFER")"
exit $status
