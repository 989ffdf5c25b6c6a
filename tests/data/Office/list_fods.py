# SPDX-License-Identifier: BSD-3-Clause
# Prints a flat OpenDocument spreadsheet: for each sheet its name, its cells with kind and value, and its merged ranges.
import sys
import xml.etree.ElementTree as ElementTree

OFFICE = '{urn:oasis:names:tc:opendocument:xmlns:office:1.0}'
TABLE = '{urn:oasis:names:tc:opendocument:xmlns:table:1.0}'
TEXT = '{urn:oasis:names:tc:opendocument:xmlns:text:1.0}'


def letters(column):
    text = ''
    while column > 0:
        column, rest = divmod(column - 1, 26)
        text = chr(65 + rest) + text
    return text


def value_of(cell):
    kind = cell.get(OFFICE + 'value-type')
    formula = cell.get(TABLE + 'formula')
    if formula in ('of:=TRUE()', 'of:=FALSE()'):  # how LibreOffice takes over a logical cell
        return 'boolean', formula[4:-2].lower()
    if kind == 'float':
        return kind, repr(float(cell.get(OFFICE + 'value')))
    if kind == 'string':
        return kind, repr('\n'.join(''.join(part.itertext()) for part in cell.findall(TEXT + 'p')))
    return kind, ''


for table in ElementTree.parse(sys.argv[1]).getroot().iter(TABLE + 'table'):
    print('sheet', table.get(TABLE + 'name'))
    merges = []
    row_number = 0
    for row in table.iter(TABLE + 'table-row'):
        row_number += 1
        column = 0
        for cell in row:
            if cell.tag not in (TABLE + 'table-cell', TABLE + 'covered-table-cell'):
                continue
            column += 1
            kind, value = value_of(cell)
            if kind:
                print(letters(column) + str(row_number), kind, value)
            across = int(cell.get(TABLE + 'number-columns-spanned', 1))
            down = int(cell.get(TABLE + 'number-rows-spanned', 1))
            if across > 1 or down > 1:
                merges.append('%s%d:%s%d' % (letters(column), row_number, letters(column + across - 1), row_number + down - 1))
            column += int(cell.get(TABLE + 'number-columns-repeated', 1)) - 1
        row_number += int(row.get(TABLE + 'number-rows-repeated', 1)) - 1
    for merge in sorted(merges):
        print('merge', merge)
