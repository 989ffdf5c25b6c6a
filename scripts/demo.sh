#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs what is missing, builds the converter and turns a real CSV file into three kinds of table.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-dependencies.sh demo
. scripts/build-environment.sh

echo "Building in build/release"
cmake --preset release "${configure_options[@]}" --log-level=WARNING
cmake --build build/release --parallel "$jobs" --target zyconvert

input=examples/convert/data/co2-mm-mlo.csv
mkdir -p out
echo "Converting $input: monthly carbon dioxide at Mauna Loa since 1958"
build/release/examples/convert/zyconvert --header 1 --sheet CO2 "$input" out/co2.xlsx out/co2.xml out/co2.csv

cat <<END

Open:
  $PWD/out/co2.xlsx   workbook for any spreadsheet program
  $PWD/out/co2.xml    the same as a single XML file (SpreadsheetML 2003)
  $PWD/out/co2.csv    the same as comma-separated text
END
