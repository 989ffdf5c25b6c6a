#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Runs zyconvert as a user would and looks at what it prints, returns and leaves behind.

convert_test.py PROGRAM [CLASS...]
"""
import base64
import csv
import os
import pathlib
import pty
import re
import resource
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile
import xml.etree.ElementTree as ElementTree

try:
    import openpyxl
except ImportError:
    openpyxl = None

PROGRAM = sys.argv[1]
DATA = pathlib.Path(__file__).resolve().parent.parent / 'data' / 'co2-mm-mlo.csv'
OFFICE = shutil.which('soffice')
SS = '{urn:schemas-microsoft-com:office:spreadsheet}'


class Converting(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix='zyconvert-'))
        self.addCleanup(shutil.rmtree, self.directory, True)

    def write(self, name, content):
        (self.directory / name).write_bytes(content if isinstance(content, bytes) else content.encode())

    def read(self, name):
        return (self.directory / name).read_bytes()

    def run_it(self, *arguments, **settings):
        environment = dict(os.environ, **settings.pop('env', {}))
        return subprocess.run([PROGRAM, *arguments], cwd=self.directory, capture_output=True, timeout=200,
                              env=environment, **settings)

    def convert(self, *arguments, **settings):
        """Runs it and expects success without a word about errors."""
        done = self.run_it(*arguments, **settings)
        self.assertEqual((done.returncode, done.stderr.decode()), (0, ''))
        return done.stdout.decode()

    def fail_with(self, line, *arguments, **settings):
        """Runs it and expects exactly one line of complaint, and no file that was not there before."""
        before = self.snapshot()
        done = self.run_it(*arguments, **settings)
        self.assertEqual((done.returncode, done.stderr.decode(), done.stdout.decode()), (1, line + '\n', ''))
        self.assertEqual(self.snapshot(), before)

    def snapshot(self):
        return {path.name: (path.stat().st_size, path.stat().st_mtime_ns, path.stat().st_mode)
                for path in self.directory.iterdir()}

    def converted(self, content, *options):
        """The bytes of the comma-separated text made of such a text."""
        self.write('in.csv', content)
        self.convert(*options, '--quiet', 'in.csv', 'out.csv')
        return self.read('out.csv')

    def workbook(self, name):
        if openpyxl is None:
            self.skipTest('openpyxl is not installed')
        return openpyxl.load_workbook(self.directory / name)


class Arguments(Converting):
    def test_help(self):
        text = self.convert('--help')
        self.assertTrue(text.startswith('Usage: '))
        for option in ('--text', '--header <N>', '--sheet <NAME>', '--sort <COLUMN>', '--group <COLUMN>', '--quiet'):
            self.assertIn(option, text)

    def test_version(self):
        self.assertRegex(self.convert('--version'), r'^zyconvert \d+\.\d+\.\d+\n$')

    def test_nothing_given(self):
        self.fail_with('zyconvert: an input and at least one output are needed; see --help')
        self.write('in.csv', 'a\n')
        self.fail_with('zyconvert: an input and at least one output are needed; see --help', 'in.csv')

    def test_unknown_option(self):
        self.write('in.csv', 'a\n')
        self.fail_with("zyconvert: Unknown option 'frob'.", '--frob', 'in.csv', 'out.csv')

    def test_missing_value(self):
        self.fail_with("zyconvert: Missing value after '--header'.", 'in.csv', 'out.csv', '--header')

    def test_header_is_no_number(self):
        for value in ('x', '-1', '1.5', ''):
            self.fail_with(f'zyconvert: --header takes a number of rows, not "{value}"', f'--header={value}', 'in.csv',
                           'out.csv')

    def test_unknown_kind(self):
        self.write('in.csv', 'a\n')
        self.fail_with('zyconvert: the kind of "out.pdf" is not known: name it .xlsx, .xml, .zyt.xml or .csv', 'in.csv',
                       'ok.csv', 'out.pdf')
        self.fail_with('zyconvert: the kind of "out" is not known: name it .xlsx, .xml, .zyt.xml or .csv', 'in.csv', 'out')

    def test_kind_in_capitals(self):
        self.write('in.csv', 'a\n')
        self.convert('--quiet', 'in.csv', 'OUT.XLSX', 'Out.Xml')
        self.assertTrue(zipfile.is_zipfile(self.directory / 'OUT.XLSX'))

    def test_same_file_twice(self):
        self.write('in.csv', 'a\n')
        self.fail_with('zyconvert: the file "in.csv" is named twice', 'in.csv', 'in.csv')
        self.fail_with('zyconvert: the file "./out.csv" is named twice', 'in.csv', 'out.csv', './out.csv')
        (self.directory / 'link.csv').symlink_to('in.csv')
        self.fail_with('zyconvert: the file "link.csv" is named twice', 'in.csv', 'link.csv')

    def test_sheet_names(self):
        self.write('in.csv', 'a\n')
        for name in (':', 'a/b', 'a\\b', '?', '*', '[', ']', '<', '>', '"', '|', 'a\tb'):
            self.fail_with(f'zyconvert: the sheet name "{name}" has a character that is not allowed there', '--sheet',
                           name, 'in.csv', 'out.xlsx')
        for name in ('', ' a', 'a ', "'a", "a'", 'n' * 32):
            self.fail_with('zyconvert: a sheet name has 1 to 31 characters, and no blank or apostrophe at either end',
                           '--sheet', name, 'in.csv', 'out.xlsx')

    def test_file_names_that_begin_with_a_dash(self):
        self.write('-in.csv', 'a\n')
        self.convert('--quiet', '--', '-in.csv', '-out.csv')
        self.assertEqual(self.read('-out.csv'), b'a\r\n')

    def test_file_names_in_any_language(self):
        self.write('größe 尺.csv', 'a\n')
        for language in ('C', 'POSIX', 'C.UTF-8'):
            self.convert('--quiet', 'größe 尺.csv', 'ä 尺.xlsx', env={'LC_ALL': language})
            self.assertTrue(zipfile.is_zipfile(self.directory / 'ä 尺.xlsx'))
            (self.directory / 'ä 尺.xlsx').unlink()

    def test_summary(self):
        self.write('in.csv', 'Name,Size,Ratio,Mixed\na,1,0.5,x\nb,2,1234567.5,1\nc,,2,\n')
        text = self.convert('--header', '1', 'in.csv', 'out.xlsx', 'out.csv')
        sizes = [(self.directory / name).stat().st_size for name in ('out.xlsx', 'out.csv')]
        expected = ('Read     in.csv: 54 bytes, 4 rows, 4 columns\n'
                    '     1  Name                      3 text\n'
                    '     2  Size                      2 integer, 1 empty\n'
                    '     3  Ratio                     1 integer, 2 decimal\n'
                    '     4  Mixed                     1 integer, 1 text, 1 empty\n'
                    f'Written  out.xlsx: {sizes[0]:,} bytes\n'
                    f'Written  out.csv: {sizes[1]:,} bytes\n'
                    'Note     sheets show six digits of a number: 1 was rounded; --text keeps all digits\n'
                    'Time     ')
        self.assertEqual(text[:len(expected)], expected)
        self.assertRegex(text[len(expected):], r'^\d+\.\d\d s\n$')

    def test_summary_of_text_has_no_note(self):
        self.write('in.csv', '1234567.5\n')
        self.assertNotIn('Note', self.convert('in.csv', 'out.csv'))
        self.assertNotIn('Note', self.convert('--text', 'in.csv', 'out.xlsx'))

    def test_summary_of_many_columns(self):
        self.write('in.csv', ','.join('x' * 1000) + '\n')
        text = self.convert('in.csv', 'out.csv')
        self.assertIn('1 row, 1,000 columns\n', text)
        self.assertIn('  and 960 more columns\n', text)

    def test_quiet(self):
        self.write('in.csv', 'a\n')
        self.assertEqual(self.convert('--quiet', 'in.csv', 'out.csv'), '')


class Reading(Converting):
    def test_plain(self):
        self.assertEqual(self.converted('a,b\n1,2\n'), b'a,b\r\n1,2\r\n')

    def test_line_ends(self):
        self.assertEqual(self.converted('a,b\r\n1,2\r\n'), b'a,b\r\n1,2\r\n')
        self.assertEqual(self.converted('a,b\r\n1,2'), b'a,b\r\n1,2\r\n')
        self.assertEqual(self.converted('a\r'), b'a\r\n')

    def test_short_rows(self):
        self.assertEqual(self.converted('a,b,c\n1\n,\n\n'), b'a,b,c\r\n1,,\r\n,,\r\n,,\r\n')

    def test_short_rows_with_quotes(self):
        self.assertEqual(self.converted('"a",b,c\n1\n,\n\n'), b'a,b,c\r\n1,,\r\n,,\r\n,,\r\n')

    def test_quotes(self):
        self.assertEqual(self.converted('"a,b",c\n "x , y" , "" ,\n'), b'"a,b",c,\r\n"x , y",,\r\n')

    def test_doubled_quotes(self):
        self.assertEqual(self.converted('"say ""hi""",""""\n'), b'"say ""hi""",""""\r\n')

    def test_quotes_inside_fields_that_are_not_quoted(self):
        self.assertEqual(self.converted('5" pipe,3" pipe\n'), b'"5"" pipe","3"" pipe"\r\n')

    def test_byte_order_mark(self):
        self.assertEqual(self.converted('\ufeffa,b\n'), b'a,b\r\n')
        self.assertEqual(self.converted('\ufeff7,b\n'), b'7,b\r\n')
        self.assertEqual(self.converted('\ufeff"a,b",\n'), b'"a,b",\r\n')

    def test_numbers(self):
        self.assertEqual(self.converted('007,+7,-0,1e3,0x10,1.50,2147483648\n'), b'7,7,-0,1000,16,1.5,2147483648\r\n')
        self.assertEqual(self.converted('007,+7,-0,1e3,0x10,1.50\n', '--text'), b'007,+7,-0,1e3,0x10,1.50\r\n')

    def test_all_digits_stay(self):
        self.assertEqual(self.converted('1958.2027,0.1,123456789.125,1e-300\n'),
                         b'1958.2027,0.1,123456789.125,1e-300\r\n')

    def test_words_that_look_like_numbers(self):
        self.assertEqual(self.converted('NaN,Infinity,-inf,1e999,nan\n'), b'NaN,Infinity,-inf,1e999,nan\r\n')
        self.assertEqual(self.converted('"Nan","1,0",inf\n'), b'Nan,"1,0",inf\r\n')

    def test_other_languages_of_the_system(self):
        self.write('in.csv', '1.5,2.25\n')
        for language in ('de_DE.UTF-8', 'tr_TR.UTF-8'):
            self.convert('--quiet', 'in.csv', 'out.csv', 'out.xlsx', env={'LC_ALL': language})
            self.assertEqual(self.read('out.csv'), b'1.5,2.25\r\n')
            sheet = zipfile.ZipFile(self.directory / 'out.xlsx').read('xl/worksheets/Sheet1.xml')
            self.assertIn(b'<v>1.5</v>', sheet)

    def test_blanks(self):
        self.assertEqual(self.converted(' a , b b ,\tc\n'), b'a,b b,c\r\n')
        self.assertEqual(self.converted('" a ",b\n'), b'" a ",b\r\n')

    def test_single_empty_fields(self):
        self.assertEqual(self.converted('a\n\nb\n'), b'a\r\n""\r\nb\r\n')
        self.assertEqual(self.converted('\n'), b'""\r\n')

    def test_a_line_of_100_megabytes(self):
        with open(self.directory / 'in.csv', 'wb') as file:
            for _ in range(100):
                file.write(b'x' * 1000000)
        self.convert('--quiet', 'in.csv', 'out.csv')
        self.assertEqual((self.directory / 'out.csv').stat().st_size, 100000002)

    def test_output_is_read_the_same_again(self):
        once = self.converted(DATA.read_bytes())
        self.assertEqual(self.converted(once), once)


class Columns(Converting):
    TEXT = 'Name,City,Count\nb,Rome,3\na,rome,20\nc,Oslo,1.5\n,Bern,x\nd,Bern,\n'

    def test_sort_by_number_of_column(self):
        self.assertEqual(self.converted(self.TEXT, '--header', '1', '--sort', '1'),
                         b'Name,City,Count\r\na,rome,20\r\nb,Rome,3\r\nc,Oslo,1.5\r\nd,Bern,\r\n,Bern,x\r\n')

    def test_sort_by_heading(self):
        self.assertEqual(self.converted(self.TEXT, '--header', '1', '--sort', 'count'),
                         b'Name,City,Count\r\nc,Oslo,1.5\r\nb,Rome,3\r\na,rome,20\r\n,Bern,x\r\nd,Bern,\r\n')

    def test_sort_keeps_the_order_of_equals(self):
        self.assertEqual(self.converted(self.TEXT, '--header', '1', '--sort', '2'),
                         b'Name,City,Count\r\n,Bern,x\r\nd,Bern,\r\nc,Oslo,1.5\r\nb,Rome,3\r\na,rome,20\r\n')

    def test_sort_of_text(self):
        self.assertEqual(self.converted('10\n9\n1\n', '--text', '--sort', '1'), b'1\r\n10\r\n9\r\n')
        self.assertEqual(self.converted('10\n9\n1\n', '--sort', '1'), b'1\r\n9\r\n10\r\n')

    def test_heading_of_the_last_heading_row(self):
        self.assertEqual(self.converted('a,b\nx,y\n1,2\n0,3\n', '--header', '2', '--sort', 'X'),
                         b'a,b\r\nx,y\r\n0,3\r\n1,2\r\n')
        self.fail_with('in.csv:2: there is no column "a"; there are the numbers 1 to 2 and the headings of this line',
                       '--header', '2', '--sort', 'a', 'in.csv', 'x.csv')

    def test_heading_that_is_a_number(self):
        self.assertEqual(self.converted('2019,2020\n5,1\n4,2\n', '--header', '1', '--sort', '2019'),
                         b'2019,2020\r\n4,2\r\n5,1\r\n')

    def test_missing_columns(self):
        self.write('in.csv', self.TEXT)
        for name in ('4', '0', '-1', 'Town', ''):
            self.fail_with(f'in.csv:1: there is no column "{name}"; there are the numbers 1 to 3 and the headings of '
                           'this line', '--header', '1', f'--sort={name}', 'in.csv', 'out.csv')
        self.fail_with('in.csv:1: there is no column "Name"; there are the numbers 1 to 3 and, without --header, no '
                       'headings', '--group', 'Name', 'in.csv', 'out.csv')

    def test_more_headings_than_rows(self):
        self.write('in.csv', 'a\nb\n')
        self.fail_with('in.csv:2: the text ends with this line, but 3 heading rows were asked for', '--header', '3',
                       'in.csv', 'out.csv')
        self.convert('--quiet', '--header', '2', '--sort', '1', 'in.csv', 'out.csv')
        self.assertEqual(self.read('out.csv'), b'a\r\nb\r\n')

    def test_group_changes_no_text(self):
        self.assertEqual(self.converted('a,1\na,2\nb,3\n', '--group', '1'), b'a,1\r\na,2\r\nb,3\r\n')


class Csv(Converting):
    def test_quotes_where_they_are_needed(self):
        rows = [['a,b', 'say "hi"', ' blank', 'blank ', 'plain', ''], ['1', '2', '3', '4', '5', '6']]
        with open(self.directory / 'in.csv', 'w', newline='', encoding='utf-8') as file:
            csv.writer(file, quoting=csv.QUOTE_ALL).writerows(rows)
        self.convert('--quiet', 'in.csv', 'out.csv')
        with open(self.directory / 'out.csv', newline='', encoding='utf-8') as file:
            self.assertEqual(list(csv.reader(file)), rows)
        self.assertEqual(self.read('out.csv'),
                         b'"a,b","say ""hi"""," blank","blank ",plain,\r\n1,2,3,4,5,6\r\n')

    def test_unicode(self):
        self.assertEqual(self.converted('größe,尺,😀\n'), 'größe,尺,😀\r\n'.encode())


class Workbook(Converting):
    def test_values_and_kinds(self):
        self.write('in.csv', 'Name,Size\n"a,b",1\nc,2.5\n,-3\n')
        self.convert('--quiet', '--header', '1', '--sheet', 'My Sheet', 'in.csv', 'out.xlsx')
        book = self.workbook('out.xlsx')
        self.assertEqual(book.sheetnames, ['My Sheet'])
        self.assertEqual(list(book.active.values), [('Name', 'Size'), ('a,b', 1), ('c', 2.5), (None, -3)])
        self.assertEqual([cell.data_type for cell in book.active[3]], ['s', 'n'])

    def test_text(self):
        self.write('in.csv', '007,1.50\n')
        self.convert('--quiet', '--text', 'in.csv', 'out.xlsx')
        self.assertEqual(list(self.workbook('out.xlsx').active.values), [('007', '1.50')])

    def test_groups_become_tall_cells(self):
        self.write('in.csv', 'City,Name,Count\nRome,a,1\nRome,b,2\nRome,,3\nOslo,d,4\nBern,e,5\nBern,f,6\n')
        self.convert('--quiet', '--header', '1', '--group', 'City', 'in.csv', 'out.xlsx')
        sheet = self.workbook('out.xlsx').active
        self.assertEqual(sorted(str(merge) for merge in sheet.merged_cells.ranges), ['A2:A4', 'A6:A7'])
        self.assertEqual(list(sheet.values), [('City', 'Name', 'Count'), ('Rome', 'a', 1), (None, 'b', 2),
                                              (None, None, 3), ('Oslo', 'd', 4), ('Bern', 'e', 5), (None, 'f', 6)])

    def test_groups_in_a_middle_and_the_last_column(self):
        self.write('in.csv', '1,a,x\n2,a,x\n3,a,y\n')
        self.convert('--quiet', '--group', '2', 'in.csv', 'out.xlsx')
        sheet = self.workbook('out.xlsx').active
        self.assertEqual([str(merge) for merge in sheet.merged_cells.ranges], ['B1:B3'])
        self.assertEqual(list(sheet.values), [(1, 'a', 'x'), (2, None, 'x'), (3, None, 'y')])
        self.convert('--quiet', '--group', '3', 'in.csv', 'out.xlsx')
        sheet = self.workbook('out.xlsx').active
        self.assertEqual([str(merge) for merge in sheet.merged_cells.ranges], ['C1:C2'])
        self.assertEqual(list(sheet.values), [(1, 'a', 'x'), (2, 'a', None), (3, 'a', 'y')])

    def test_sorting_gathers_groups(self):
        self.write('in.csv', 'k,v\nb,1\na,2\nb,3\n1,4\n1.0,5\n')
        self.convert('--quiet', '--header', '1', '--sort', 'k', '--group', 'k', 'in.csv', 'out.xlsx')
        sheet = self.workbook('out.xlsx').active
        self.assertEqual(sorted(str(merge) for merge in sheet.merged_cells.ranges), ['A2:A3', 'A5:A6'])
        self.assertEqual(list(sheet.values), [('k', 'v'), (1, 4), (None, 5), ('a', 2), ('b', 1), (None, 3)])

    def test_headings_are_no_group(self):
        self.write('in.csv', 'a,1\na,2\na,3\n')
        self.convert('--quiet', '--header', '1', '--group', '1', 'in.csv', 'out.xlsx')
        self.assertEqual([str(merge) for merge in self.workbook('out.xlsx').active.merged_cells.ranges], ['A2:A3'])

    def test_sheet_name_in_any_language(self):
        self.write('in.csv', '1\n')
        self.convert('--quiet', '--sheet', "Größe & d'or 尺", 'in.csv', 'out.xlsx')
        self.assertEqual(self.workbook('out.xlsx').sheetnames, ["Größe & d'or 尺"])

    def test_special_characters(self):
        self.write('in.csv', 'a&b<c>,"]]>",😀,\x7f\n')
        self.convert('--quiet', 'in.csv', 'out.xlsx')
        self.assertEqual(list(self.workbook('out.xlsx').active.values), [('a&b<c>', ']]>', '😀', '\x7f')])

    def test_package(self):
        self.write('in.csv', '1\n')
        self.convert('--quiet', 'in.csv', 'out.xlsx')
        package = zipfile.ZipFile(self.directory / 'out.xlsx')
        self.assertIsNone(package.testzip())
        self.assertEqual(package.namelist(), ['xl/worksheets/Sheet1.xml', '[Content_Types].xml', '_rels/.rels',
                                              'xl/_rels/workbook.xml.rels', 'xl/workbook.xml'])

    def test_in_an_office_program(self):
        self.write('in.csv', 'City,Count\nRome,1\nRome,2.5\nOslo,"x,y"\n')
        self.convert('--quiet', '--header', '1', '--group', '1', '--sheet', 'Größe', 'in.csv', 'out.xlsx')
        self.assertEqual(by_office(self, 'out.xlsx'), OFFICE_ROWS)
        self.assertEqual(merges_by_office(self, 'out.xlsx'), ['A2:A3'])


OFFICE_ROWS = [['City', 'Count'], ['Rome', '1'], ['', '2.5'], ['Oslo', 'x,y']]


def office(test, kind, name):
    """Lets LibreOffice convert a file; returns the path of the result."""
    if OFFICE is None:
        test.skipTest('LibreOffice is not installed')
    profile = (test.directory / 'profile').as_uri()
    out = test.directory / 'office'
    # Its exit status says nothing: what counts is the file.
    subprocess.run([OFFICE, f'-env:UserInstallation={profile}', '--headless', '--convert-to', kind, '--outdir', out,
                    test.directory / name], capture_output=True, timeout=180, env=dict(os.environ, LC_ALL='C.UTF-8'))
    result = out / (pathlib.Path(name).stem + '.' + kind.split(':')[0])
    test.assertTrue(result.exists(), f'LibreOffice does not open {name}')
    return result


def by_office(test, name):
    with open(office(test, 'csv:Text - txt - csv (StarCalc):44,34,76,1', name), newline='', encoding='utf-8') as file:
        return list(csv.reader(file))


def merges_by_office(test, name):
    path = office(test, 'xlsx', name)
    if openpyxl is None:
        test.skipTest('openpyxl is not installed')
    return sorted(str(merge) for merge in openpyxl.load_workbook(path).active.merged_cells.ranges)


class XmlSheet(Converting):
    def rows(self, name):
        root = ElementTree.parse(self.directory / name).getroot()
        return [[(cell.find(f'{SS}Data').get(f'{SS}Type'), cell.find(f'{SS}Data').text) for cell in row]
                for row in root.iter(f'{SS}Row')]

    def test_values_and_kinds(self):
        self.write('in.csv', 'Name,Size\n"a,b",1\n,2.5\n')
        self.convert('--quiet', 'in.csv', 'out.xml')
        self.assertEqual(self.rows('out.xml'), [[('String', 'Name'), ('String', 'Size')],
                                                [('String', 'a,b'), ('Number', '1')],
                                                [('String', None), ('Number', '2.5')]])

    def test_groups(self):
        self.write('in.csv', 'Rome,1\nRome,2\nOslo,3\n')
        self.convert('--quiet', '--group', '1', 'in.csv', 'out.xml')
        root = ElementTree.parse(self.directory / 'out.xml').getroot()
        self.assertEqual([cell.get(f'{SS}MergeDown') for cell in root.iter(f'{SS}Cell')], ['1'] + [None] * 5)
        self.assertEqual(self.rows('out.xml'), [[('String', 'Rome'), ('Number', '1')], [('String', None), ('Number', '2')],
                                                [('String', 'Oslo'), ('Number', '3')]])

    def test_in_an_office_program(self):
        self.write('in.csv', 'City,Count\nRome,1\nRome,2.5\nOslo,"x,y"\n')
        self.convert('--quiet', '--header', '1', '--group', '1', 'in.csv', 'out.xml')
        self.assertEqual(by_office(self, 'out.xml'), OFFICE_ROWS)
        self.assertEqual(merges_by_office(self, 'out.xml'), ['A2:A3'])


class RichTable(Converting):
    CSV = 'Name,Age,Height\nAda,36,1.5\nAda,37,\n"x, ""y""",-1,0.1\n'

    def element(self, name):
        """The rows as lists of (attributes, [(kind, text)])."""
        root = ElementTree.parse(self.directory / name).getroot()
        self.assertEqual(root.tag, 'DataTable')
        space = '{http://schemas.zycore.example/schemas/application/zytypes/}'
        rows = root.find(space + 'Rows')
        self.assertEqual([child.tag for child in root], [space + 'Rows'])
        return [(row.attrib, [(item.attrib, [(value[0].tag[len(space):], value[0].text or '') for value in item])
                              for item in row]) for row in rows]

    def test_what_is_written(self):
        self.write('in.csv', self.CSV)
        self.convert('--header', '1', 'in.csv', 'out.zyt.xml')
        double = lambda number: base64.b64encode(struct.pack('<d', number)).decode()
        self.assertEqual(self.element('out.zyt.xml'), [
            ({'header': '1'}, [({}, [('String', 'Name')]), ({}, [('String', 'Age')]), ({}, [('String', 'Height')])]),
            ({}, [({}, [('String', 'Ada')]), ({}, [('Integer', '36')]), ({}, [('Double', double(1.5))])]),
            ({}, [({}, [('String', 'Ada')]), ({}, [('Integer', '37')]), ({}, [('String', '')])]),
            ({}, [({}, [('String', 'x, "y"')]), ({}, [('Integer', '-1')]), ({}, [('Double', double(0.1))])])])

    def test_round_trip_to_the_byte(self):
        self.write('in.csv', self.CSV)
        for options in ((), ('--group', '1')):
            self.convert('--header', '1', *options, 'in.csv', 'a.zyt.xml', 'a.csv')
            self.convert('a.zyt.xml', 'B.ZYT.XML', 'b.csv')
            self.assertEqual(self.read('a.zyt.xml'), self.read('B.ZYT.XML'))
            self.assertEqual(self.read('a.csv'), self.read('b.csv'))

    def test_real_file_round_trip(self):
        self.convert('--header', '1', str(DATA), 'a.zyt.xml', 'a.csv')
        self.convert('a.zyt.xml', 'b.zyt.xml', 'b.csv')
        self.assertEqual(self.read('a.zyt.xml'), self.read('b.zyt.xml'))
        self.assertEqual(self.read('a.csv'), self.read('b.csv'))

    def test_tall_cells_stay_tall(self):
        self.write('in.csv', self.CSV)
        self.convert('--header', '1', '--group', 'Name', 'in.csv', 'a.zyt.xml', 'a.xlsx')
        self.assertEqual([len(row[1][0][1]) for row in self.element('a.zyt.xml')], [1, 1, 1])
        self.assertEqual([len(row[1][1][1]) for row in self.element('a.zyt.xml')], [1, 2, 1])
        self.convert('a.zyt.xml', 'b.xlsx')
        merges = [[str(merge) for merge in self.workbook(name).active.merged_cells.ranges]
                  for name in ('a.xlsx', 'b.xlsx')]
        self.assertEqual(merges, [['A2:A3'], ['A2:A3']])

    def test_sorting_and_grouping_take_it_apart(self):
        self.write('in.csv', 'K,V\nb,1\nb,2\na,3\n')
        self.convert('--header', '1', '--group', 'K', 'in.csv', 'a.zyt.xml')
        self.convert('--sort', 'V', 'a.zyt.xml', 'b.csv')
        self.assertEqual(self.read('b.csv'), b'K,V\r\nb,1\r\nb,2\r\na,3\r\n')
        self.convert('--sort', 'K', 'a.zyt.xml', 'c.csv')
        self.assertEqual(self.read('c.csv'), b'K,V\r\na,3\r\nb,1\r\nb,2\r\n')

    def test_kinds_that_text_has_not(self):
        self.write('in.zyt.xml', '<DataTable><Rows><Row header="2"><Item hspan="2"><Value><Boolean>TRUE</Boolean></Value>'
                   '</Item></Row><Row><Item><Value><Size>4294967295</Size></Value></Item><Item><Value/></Item></Row>'
                   '<Row><Item><Value><FilePath>a/b</FilePath></Value></Item></Row></Rows></DataTable>')
        self.convert('in.zyt.xml', 'out.csv')
        self.assertEqual(self.read('out.csv'), b'true,\r\n4294967295,\r\na\\b,\r\n')
        self.convert('in.zyt.xml', 'a.zyt.xml')
        self.convert('a.zyt.xml', 'b.zyt.xml')
        self.assertEqual(self.read('a.zyt.xml'), self.read('b.zyt.xml'))

    def test_blanks_at_the_ends_of_a_text(self):
        self.write('in.csv', 'a,"b "\n')
        self.fail_with('out.zyt.xml: row 1, cell 2: a text with blanks at its ends would not come back as it is',
                       '--quiet', 'in.csv', 'out.zyt.xml')

    def test_options_for_text(self):
        self.write('in.zyt.xml', '<DataTable/>')
        for option in (('--text',), ('--header', '1')):
            self.fail_with('zyconvert: --header and --text are for text; a .zyt.xml file tells these things itself',
                           *option, 'in.zyt.xml', 'out.csv')

    def test_bad_files(self):
        for text, complaint in (
                ('', ':1: Premature end of document.'),
                ('<DataTable/>', ': has no rows'),
                ('<Table/>', ':1: an element "Table" where "DataTable" is expected'),
                ('<DataTable>\n<Rows><Cell/></Rows></DataTable>', ':2: an element "Cell" where "Row" is expected'),
                ('<DataTable><Rows>\n\n<Row><Item></Row>', ':3: Opening and ending tag mismatch.'),
                ('<DataTable><Rows><Row><Item hspan="0"/></Row></Rows></DataTable>',
                 ':1: hspan="0": a number from 1 to 1000000 is expected'),
                ('<DataTable><Rows><Row header="3"/></Rows></DataTable>',
                 ':1: header="3": a number from 0 to 2 is expected'),
                ('<DataTable><Rows>\n<Row><Item><Value><Integer>x</Integer></Value></Item></Row></Rows></DataTable>',
                 ':2: "x" is no integer of 32 bits'),
                ('<DataTable><Rows><Row><Item><Value><Double>1.5</Double></Value></Item></Row></Rows></DataTable>',
                 ':1: "1.5" is not the Base64 form of a number'),
                ('<DataTable><Rows><Row><Item><Value><String><b/></String></Value></Item></Row></Rows></DataTable>',
                 ':1: an element "b" inside a value'),
                ('<DataTable>x</DataTable>', ':1: text outside of a value'),
                ('<!DOCTYPE DataTable><DataTable/>', ':1: a document type, which such a file does not have'),
        ):
            self.write('in.zyt.xml', text)
            self.fail_with('in.zyt.xml' + complaint, 'in.zyt.xml', 'out.csv')

    def test_too_wide_for_a_sheet(self):
        self.write('in.zyt.xml', '<DataTable><Rows><Row><Item hspan="16385"><Value/></Item></Row></Rows></DataTable>')
        self.fail_with('in.zyt.xml:1: 16385 fields, more than the 16384 columns of a sheet', 'in.zyt.xml', 'out.xlsx')
        self.convert('--quiet', 'in.zyt.xml', 'out.csv')


class BadInput(Converting):
    def refuse(self, content, words, *options, output='out.csv'):
        self.write('in.csv', content)
        self.fail_with(words, *options, 'in.csv', output)

    def test_missing(self):
        self.fail_with('none.csv: there is no such file', 'none.csv', 'out.xlsx')

    def test_directory(self):
        (self.directory / 'in.csv').mkdir()
        self.fail_with('in.csv: is a directory', 'in.csv', 'out.xlsx')

    def test_unreadable(self):
        if os.geteuid() == 0:
            self.skipTest('nothing is unreadable to root')
        self.write('in.csv', 'a\n')
        (self.directory / 'in.csv').chmod(0)
        self.fail_with('in.csv: cannot be read: Permission denied', 'in.csv', 'out.xlsx')

    def test_no_regular_file(self):
        os.mkfifo(self.directory / 'in.csv')
        self.fail_with('in.csv: is no regular file', 'in.csv', 'out.xlsx')

    def test_empty(self):
        self.refuse('', 'in.csv: is empty')
        self.refuse('\ufeff', 'in.csv: is empty')

    def test_zero_bytes(self):
        self.refuse(b'a\nb\0c\n', 'in.csv:2: a zero byte; this is no text, or text in UTF-16')
        self.refuse('a,b\n'.encode('utf-16-be'), 'in.csv:1: a zero byte; this is no text, or text in UTF-16')

    def test_invalid_utf8(self):
        self.refuse('a\nb\ngröße\n'.encode('latin-1'),
                    'in.csv:3: the byte 0xf6 is not UTF-8 here; save the file as UTF-8')
        for bad in (b'\xc0\xaf', b'\xed\xa0\x80', b'\xf4\x90\x80\x80', b'\x80', b'\xff'):
            self.write('in.csv', bad + b'\n')
            done = self.run_it('in.csv', 'out.csv')
            self.assertEqual(done.returncode, 1)
            self.assertRegex(done.stderr.decode(),
                             r'^in\.csv:1: the byte 0x[0-9a-f]{2} is not UTF-8 here; save the file as UTF-8\n$')
        self.refuse(b'a\xe2\x82', 'in.csv:1: the text ends in the middle of a character; it is no UTF-8')

    def test_utf8_across_block_borders(self):
        text = 'é' * 200000 + '\n'
        self.assertEqual(self.converted('x' + text), ('x' + text[:-1] + '\r\n').encode())

    def test_control_characters(self):
        self.refuse('a\n\x01\n', 'in.csv:2: the control character 0x01')
        self.refuse('a\x1fb\n', 'in.csv:1: the control character 0x1f')
        self.refuse('a\rb\n', 'in.csv:1: a carriage return inside a line')

    def test_quotes(self):
        self.refuse('x,y\n"a\nb",c\n', 'in.csv:2: a quoted field does not end on its line')
        self.refuse('x,y\n"a"b,c\n', 'in.csv:2: text behind the closing quote of a field')
        self.refuse('x,y\n"a" "b",c\n', 'in.csv:2: text behind the closing quote of a field')
        self.refuse('"x",y\na"b,c\n', 'in.csv:2: a double quote inside a field that does not begin with one')

    def test_larger_than_a_sheet(self):
        self.write('in.csv', '1\n' * 1048577)
        self.fail_with('in.csv:1048577: more rows than the 1048576 of a sheet', 'in.csv', 'out.xlsx')
        self.write('in.csv', 'a\n' + ',' * 16384 + '\n')
        self.fail_with('in.csv:2: 16385 fields, more than the 16384 columns of a sheet', 'in.csv', 'out.xml')
        self.write('in.csv', 'a,' + 'x' * 32768 + '\n')
        self.fail_with('in.csv:1: a field of 32768 characters, more than the 32767 of a cell', 'in.csv', 'out.xlsx')
        self.convert('--quiet', 'in.csv', 'out.csv')

    def test_a_line_of_100_megabytes(self):
        with open(self.directory / 'in.csv', 'wb') as file:
            for _ in range(100):
                file.write(b'x' * 1000000)
        self.fail_with('in.csv:1: a field of 100000000 characters, more than the 32767 of a cell', 'in.csv', 'out.xlsx')
        with open(self.directory / 'in.csv', 'wb') as file:
            for _ in range(100):
                file.write(b'1,' * 500000)
        self.fail_with('in.csv:1: 50000001 fields, which makes a table of 1 rows too large to hold', 'in.csv',
                       'out.csv')

    def test_a_table_with_a_single_long_row(self):
        self.write('in.csv', '1\n' * 100000 + ',' * 10000 + '\n')
        self.fail_with('in.csv:100001: 10001 fields, which makes a table of 100001 rows too large to hold', 'in.csv',
                       'out.xlsx')


class Outputs(Converting):
    def setUp(self):
        super().setUp()
        self.write('in.csv', 'a,1\nb,2\n')

    def test_all_at_once(self):
        self.convert('--quiet', 'in.csv', 'out.xlsx', 'out.xml', 'out.csv')
        self.assertEqual(sorted(os.listdir(self.directory)), ['in.csv', 'out.csv', 'out.xlsx', 'out.xml'])

    def test_existing_files_are_replaced(self):
        self.write('out.csv', 'something longer than that')
        (self.directory / 'out.csv').chmod(0o640)
        self.convert('--quiet', 'in.csv', 'out.csv')
        self.assertEqual(self.read('out.csv'), b'a,1\r\nb,2\r\n')
        self.assertEqual((self.directory / 'out.csv').stat().st_mode & 0o777, 0o640)

    def test_new_files_have_the_usual_permissions(self):
        self.convert('--quiet', 'in.csv', 'out.csv', 'out.xlsx', umask=0o027)
        for name in ('out.csv', 'out.xlsx'):
            self.assertEqual((self.directory / name).stat().st_mode & 0o777, 0o640)

    def test_links_are_followed(self):
        (self.directory / 'link.csv').symlink_to('real.csv')
        self.convert('--quiet', 'in.csv', 'link.csv')
        self.assertTrue((self.directory / 'link.csv').is_symlink())
        self.assertEqual(self.read('real.csv'), b'a,1\r\nb,2\r\n')
        self.convert('--quiet', '--text', 'in.csv', 'link.csv')
        self.assertTrue((self.directory / 'link.csv').is_symlink())

    def test_missing_directory(self):
        self.fail_with('none/out.csv: its directory does not exist', 'in.csv', 'none/out.csv')
        self.fail_with('none/out.csv: its directory does not exist', 'in.csv', 'ok.xlsx', 'none/out.csv')

    def test_directory(self):
        (self.directory / 'out.csv').mkdir()
        self.fail_with('out.csv: is a directory', 'in.csv', 'ok.xml', 'out.csv')

    def test_device(self):
        os.mkfifo(self.directory / 'out.csv')
        self.fail_with('out.csv: is no regular file', 'in.csv', 'out.csv')
        if os.path.exists('/dev/full'):
            (self.directory / 'full.csv').symlink_to('/dev/full')
            self.fail_with('full.csv: is no regular file', 'in.csv', 'full.csv')

    def test_write_protected(self):
        if os.geteuid() == 0:
            self.skipTest('nothing is write-protected to root')
        self.write('out.csv', 'old')
        (self.directory / 'out.csv').chmod(0o444)
        self.fail_with('out.csv: is write-protected', 'in.csv', 'out.csv')

    def test_failure_of_one_output_leaves_all_as_they_were(self):
        self.write('first.csv', 'precious')
        self.write('second.xlsx', 'precious too')
        self.write('in.csv', 'x' * 40000 + '\n')
        self.fail_with('in.csv:1: a field of 40000 characters, more than the 32767 of a cell', 'in.csv', 'first.csv',
                       'second.xlsx')


class FullDisk(Converting):
    """Two kinds of a disk that takes no more: a limit on the size of files, and a small file system of its own."""

    KINDS = ('csv', 'xml', 'xlsx')

    def setUp(self):
        super().setUp()
        # Text that hardly shrinks when it is packed.
        lines, state = [], 1
        for _ in range(3000):
            fields = []
            for _ in range(8):
                state = state * 6364136223846793005 + 1442695040888963407 & (1 << 64) - 1
                fields.append(format(state >> 16, 'x'))
            lines.append(','.join(fields) + '\n')
        self.write('in.csv', ''.join(lines))

    def expect_failure(self, target, kind, **settings):
        before = sorted(os.listdir(target))
        (target / f'out.{kind}').write_text('precious')
        done = self.run_it('--text', '--quiet', 'in.csv', str(target / f'out.{kind}'), **settings)
        self.assertEqual(done.returncode, 1, done)
        self.assertRegex(done.stderr.decode(), rf'^{re.escape(str(target))}/out\.{kind}: (not all of it could be written; '
                         r'is the disk full\?|cannot be written: [^\n]+)\n$')
        self.assertEqual((target / f'out.{kind}').read_text(), 'precious')
        (target / f'out.{kind}').unlink()
        self.assertEqual(sorted(os.listdir(target)), before)

    def test_limit_on_the_size_of_files(self):
        whole = {}
        for kind in self.KINDS:
            self.convert('--text', '--quiet', 'in.csv', f'whole.{kind}')
            whole[kind] = (self.directory / f'whole.{kind}').stat().st_size
        for kind in self.KINDS:
            size = whole[kind]
            for limit in sorted({0, 1, 100, 5000, size // 3, size // 2, size - 70000, size - 5000, size - 700, size - 23,
                                 size - 1}):
                with self.subTest(kind=kind, limit=limit):
                    self.expect_failure(self.directory, kind, restore_signals=False,
                                        preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit)))

    def test_signal_of_the_limit(self):
        def limited():
            signal.signal(signal.SIGXFSZ, signal.SIG_DFL)
            resource.setrlimit(resource.RLIMIT_FSIZE, (50000, 50000))
        self.expect_failure(self.directory, 'xlsx', preexec_fn=limited)

    def test_small_file_system(self):
        disk = self.directory / 'disk'
        disk.mkdir()
        if subprocess.run(['mount', '-t', 'tmpfs', '-o', 'size=128k', 'tmpfs', disk], capture_output=True).returncode:
            self.skipTest('no file system may be mounted here')
        try:
            for kind in self.KINDS:
                for filled in (0, 100000, 126000):
                    with self.subTest(kind=kind, filled=filled):
                        (disk / 'filler').write_bytes(b'f' * filled)
                        self.expect_failure(disk, kind)
        finally:
            subprocess.run(['umount', disk], check=True)


class Terminal(Converting):
    def on_terminal(self, *arguments):
        """Runs it with a terminal for the standard error stream; returns what came there."""
        master, slave = pty.openpty()
        process = subprocess.Popen([PROGRAM, *arguments], cwd=self.directory, stdout=subprocess.PIPE, stderr=slave)
        os.close(slave)
        seen = b''
        while True:
            try:
                piece = os.read(master, 65536)
            except OSError:
                break
            if not piece:
                break
            seen += piece
        os.close(master)
        out = process.communicate(timeout=100)[0]
        return process.returncode, out.decode(), seen.decode()

    def test_progress(self):
        self.write('in.csv', '1,2\n' * 20000)
        status, out, seen = self.on_terminal('in.csv', 'out.xlsx')
        self.assertEqual(status, 0)
        self.assertIn('[..............................]   0 %  in.csv', seen)
        self.assertRegex(seen, r'\[###############\.{15}\]  50 %  out\.xlsx')
        self.assertTrue(seen.endswith('\r\x1b[K'), 'the bar is wiped')
        self.assertTrue(out.startswith('Read     in.csv'))

    def test_no_progress_when_quiet(self):
        self.write('in.csv', '1,2\n' * 2000)
        self.assertEqual(self.on_terminal('--quiet', 'in.csv', 'out.xlsx'), (0, '', ''))

    def test_complaint_has_a_line_of_its_own(self):
        self.write('in.csv', 'a\n\x01')
        status, _, seen = self.on_terminal('in.csv', 'out.csv')
        self.assertEqual(status, 1)
        self.assertTrue(seen.endswith('\r\x1b[Kin.csv:2: the control character 0x01\r\n'), repr(seen))

    def test_interruption(self):
        self.write('in.csv', '1,2,3,4,5,6,7,8\n' * 200000)
        self.write('out.xlsx', 'precious')
        process = subprocess.Popen([PROGRAM, '--quiet', 'in.csv', 'out.xlsx'], cwd=self.directory,
                                   stderr=subprocess.PIPE)
        deadline = time.monotonic() + 100
        while not any(name.startswith('.zyconvert-') for name in os.listdir(self.directory)):
            self.assertLess(time.monotonic(), deadline)
            self.assertIsNone(process.poll())
            time.sleep(0.002)
        process.send_signal(signal.SIGINT)
        complaint = process.communicate(timeout=100)[1].decode()
        self.assertEqual((process.returncode, complaint), (130, 'zyconvert: interrupted; nothing was written\n'))
        self.assertEqual(self.read('out.xlsx'), b'precious')
        self.assertEqual(sorted(os.listdir(self.directory)), ['in.csv', 'out.xlsx'])


class Demo(Converting):
    """The real series, as the demonstration converts it."""

    def setUp(self):
        super().setUp()
        with open(DATA, newline='', encoding='utf-8') as file:
            self.rows = list(csv.reader(file))

    def test_text_is_the_same(self):
        self.convert('--quiet', '--text', str(DATA), 'out.csv')
        expected = [row + [''] * (7 - len(row)) for row in self.rows]
        with open(self.directory / 'out.csv', newline='', encoding='utf-8') as file:
            self.assertEqual(list(csv.reader(file)), expected)

    def test_numbers_are_the_same(self):
        self.convert('--quiet', '--header', '1', str(DATA), 'out.csv', 'out.xlsx')
        with open(self.directory / 'out.csv', newline='', encoding='utf-8') as file:
            numbers = [[float(field) for field in row[1:]] for row in list(csv.reader(file))[1:]]
        expected = [[float(field) for field in row[1:]] for row in self.rows[1:]]
        self.assertEqual(numbers, expected)
        cells = [list(row)[1:] for row in list(self.workbook('out.xlsx').active.values)[1:]]
        self.assertEqual(cells, [[float(f'{number:.6g}') for number in row] for row in expected])

    def test_in_an_office_program(self):
        self.convert('--quiet', '--header', '1', '--sheet', 'CO2', str(DATA), 'co2.xlsx', 'co2.xml')
        book, sheet = by_office(self, 'co2.xlsx'), by_office(self, 'co2.xml')
        self.assertEqual(len(book), len(self.rows))
        self.assertEqual(book[1][0], self.rows[1][0])
        self.assertEqual(book, sheet)


if __name__ == '__main__':
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]], verbosity=1)
