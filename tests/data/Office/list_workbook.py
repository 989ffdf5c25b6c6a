# SPDX-License-Identifier: BSD-3-Clause
# Prints a workbook as openpyxl reads it: for each sheet its name, its cells with kind and value, and its merged ranges.
import sys

try:
    import openpyxl
except ImportError:
    print('absent')
    sys.exit(0)

for sheet in openpyxl.load_workbook(sys.argv[1]).worksheets:
    print('sheet', sheet.title)
    for row in sheet.iter_rows():
        for cell in row:
            if cell.value is not None:
                print(cell.coordinate, cell.data_type, repr(cell.value))
    for merge in sorted(str(merged) for merged in sheet.merged_cells.ranges):
        print('merge', merge)
