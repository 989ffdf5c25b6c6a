#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs what is missing, builds the example hosts, turns a real CSV file into four kinds of table, analyses
# a circuit in three ways, and changes a document of limits.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-dependencies.sh demo
. scripts/build-environment.sh

echo "Building in build/release"
cmake --preset release "${configure_options[@]}" --log-level=WARNING
cmake --build build/release --parallel "$jobs" --target zyconvert zyanalyse zylimits

input=examples/convert/data/co2-mm-mlo.csv
mkdir -p out
echo "Converting $input: monthly carbon dioxide at Mauna Loa since 1958"
build/release/examples/convert/zyconvert --header 1 --sheet CO2 "$input" out/co2.xlsx out/co2.xml out/co2.zyt.xml \
    out/co2.csv

circuit=examples/montecarlo/data/sallen-key.xml
for analysis in "montecarlo --runs 2000" worstcase sensitivity; do
    echo
    echo "Analysing $circuit: $analysis"
    # shellcheck disable=SC2086  # a mode and its options
    build/release/examples/montecarlo/zyanalyse "$circuit" --mode $analysis --out out --timing
done

limits=examples/limits/data
echo
echo "Checking $limits/limits.xml against its schema, reading it by rules, changing a limit"
build/release/examples/limits/zylimits "$limits/limits.xml" out/limits.xml --schema "$limits/limits.xsd" \
    --set "Output offset=-20"
echo "The same held in memory, which keeps the comment"
build/release/examples/limits/zylimits --dom "$limits/limits.xml" out/limits-dom.xml --set "Output offset=-20"

cat <<END

Open:
  $PWD/out/co2.xlsx         workbook for any spreadsheet program
  $PWD/out/co2.xml          the same as a single XML file (SpreadsheetML 2003)
  $PWD/out/co2.csv          the same as comma-separated text
  $PWD/out/co2.zyt.xml      the same as a rich table, which zyconvert reads again
  $PWD/out/sallen-key-montecarlo.html            report of the Monte Carlo analysis, for a browser
  $PWD/out/sallen-key-worstcase.html             of the worst case
  $PWD/out/sallen-key-sensitivity.html           of the sensitivities
  $PWD/out/sallen-key-montecarlo.xlsx            all runs and histograms, as a workbook
  $PWD/out/sallen-key-montecarlo-response.png    nominal response and envelope of all runs
  $PWD/out/sallen-key-montecarlo-histogram.png   how the figures spread
  $PWD/out/sallen-key-montecarlo.msw             all runs, to the last bit
  $PWD/out/limits.xml       the limits, written anew
  $PWD/out/limits-dom.xml   the limits, changed where they stand
END
