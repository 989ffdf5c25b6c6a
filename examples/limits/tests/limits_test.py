#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Runs zylimits as a user would and looks at what it prints, returns and leaves behind.

limits_test.py PROGRAM [CLASS...]
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
import zlib

PROGRAM = sys.argv[1]
DATA = pathlib.Path(__file__).resolve().parent.parent / 'data'

WORKED = ('<Limits><Limit><Name>a</Name><Value>1</Value></Limit>'
          '<Limit><Value>-2</Value><Name>b</Name></Limit><Other/></Limits>')


def line(name, value):
    return f'{name:<24} {value:8d} mV\n'


class Running(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix='zylimits-'))
        self.addCleanup(shutil.rmtree, self.directory, True)
        self.write('in.xml', WORKED)

    def write(self, name, content):
        (self.directory / name).write_bytes(content if isinstance(content, bytes) else content.encode())

    def read(self, name):
        return (self.directory / name).read_bytes()

    def run_it(self, *arguments):
        return subprocess.run([PROGRAM, *map(str, arguments)], cwd=self.directory, capture_output=True, timeout=60)

    def show(self, *arguments):
        """Runs it and expects success without a word about errors."""
        done = self.run_it(*arguments)
        self.assertEqual((done.returncode, done.stderr.decode()), (0, ''))
        return done.stdout.decode()

    def fail_with(self, reason, *arguments):
        """Runs it and expects one line of complaint, nothing shown and no file made or changed."""
        before = {path.name: path.read_bytes() for path in self.directory.iterdir()}
        done = self.run_it(*arguments)
        self.assertEqual((done.returncode, done.stderr.decode(), done.stdout.decode()),
                         (1, f'zylimits: {reason}\n', ''))
        self.assertEqual({path.name: path.read_bytes() for path in self.directory.iterdir()}, before)

    def content(self, name):
        root = ElementTree.parse(self.directory / name).getroot()
        self.assertEqual(root.tag, 'Limits')
        return [(limit.findtext('Name'), limit.findtext('Value')) for limit in root.findall('Limit')]


class Arguments(Running):
    def test_help_and_version(self):
        text = self.show('--help')
        for option in ('--schema <FILE>', '--set <NAME=VALUE>', '--dom', '--compress'):
            self.assertIn(option, text)
        self.assertRegex(self.show('--version'), r'^zylimits \d+\.\d+\.\d+\n$')

    def test_number_of_files(self):
        for files in ((), ('in.xml', 'b.xml', 'c.xml')):
            self.fail_with('one input and at most one output are needed; see --help', *files)

    def test_settings(self):
        for setting in ('a', '=1', 'a=', 'a=x', 'a=3000000000'):
            self.fail_with(f'--set takes NAME=VALUE, not "{setting}"', 'in.xml', '--set', setting)

    def test_compress_without_dom(self):
        self.fail_with('--compress goes with --dom', 'in.xml', 'out.xml', '--compress')


class Rules(Running):
    def test_shows_what_the_document_holds(self):
        self.assertEqual(self.show('in.xml'), line('a', 1) + line('b', -2))

    def test_shows_the_file_that_comes_with_it(self):
        self.assertEqual(self.show(DATA / 'limits.xml'),
                         line('Supply maximum', 5250) + line('Supply minimum', 4750) + line('Output offset', -12))

    def test_writes_what_it_has_read(self):
        self.show('in.xml', 'out.xml')
        self.assertEqual(self.read('out.xml').decode(), '\n'.join((
            '<?xml version="1.0" encoding="UTF-8"?>', '<Limits>',
            '  <Limit>', '    <Name>a</Name>', '    <Value>1</Value>', '  </Limit>',
            '  <Limit>', '    <Name>b</Name>', '    <Value>-2</Value>', '  </Limit>', '</Limits>', '')))

    def test_changes_and_adds(self):
        self.assertEqual(self.show('in.xml', 'out.xml', '--set', 'B=7', '--set', 'c=d=8'),
                         line('a', 1) + line('b', 7) + line('c=d', 8))
        self.assertEqual(self.content('out.xml'), [('a', '1'), ('b', '7'), ('c=d', '8')])

    def test_changes_a_file_in_its_place(self):
        self.show('in.xml', 'in.xml', '--set', 'a=5')
        self.assertEqual(self.content('in.xml'), [('a', '5'), ('b', '-2')])

    def test_a_limit_without_a_value_does_not_take_that_of_its_neighbour(self):
        self.write('in.xml', '<Limits><Limit><Name>a</Name><Value>1</Value></Limit><Limit><Name>b</Name></Limit></Limits>')
        self.assertEqual(self.show('in.xml'), line('a', 1) + line('b', 0))

    def test_no_limits(self):
        self.write('in.xml', '<Limits/>')
        self.assertEqual(self.show('in.xml', 'out.xml'), '')
        self.assertEqual(self.content('out.xml'), [])

    def test_names_with_markup_and_other_letters(self):
        self.write('in.xml', '<Limits/>')
        self.show('in.xml', 'out.xml', '--set', 'R<1 & größer=3')
        self.assertEqual(self.content('out.xml'), [('R<1 & größer', '3')])
        self.assertIn('R<1 & größer', self.show('out.xml'))


class Schema(Running):
    def test_passes(self):
        for road in ((), ('--dom',)):
            self.assertEqual(self.show(DATA / 'limits.xml', '--schema', DATA / 'limits.xsd', *road),
                             self.show(DATA / 'limits.xml'))

    def test_does_not_pass(self):
        shutil.copy(DATA / 'limits.xsd', self.directory)
        for road in ((), ('--dom',)):
            self.fail_with('Invalid XML: in.xml, for schema: limits.xsd', 'in.xml', 'out.xml', '--schema', 'limits.xsd', *road)

    def test_is_not_there(self):
        self.fail_with('File not found: none.xsd', 'in.xml', '--schema', 'none.xsd')


class Dom(Running):
    def test_shows_the_same(self):
        for file in ('in.xml', DATA / 'limits.xml'):
            self.assertEqual(self.show(file, '--dom'), self.show(file))

    def test_keeps_what_else_is_in_the_document(self):
        shutil.copy(DATA / 'limits.xml', self.directory / 'real.xml')
        self.show('--dom', 'real.xml', 'real.xml', '--set', 'output OFFSET=-20', '--set', 'Gain=3')
        text = self.read('real.xml').decode()
        self.assertIn('<!-- What an amplifier must keep to; all values in millivolts. -->', text)
        self.assertEqual(self.content('real.xml')[2:], [('Output offset', '-20'), ('Gain', '3')])
        self.show('--dom', 'in.xml', 'out.xml', '--set', 'a=9')
        self.assertIsNotNone(ElementTree.parse(self.directory / 'out.xml').getroot().find('Other'))

    def test_compresses(self):
        self.show('--dom', 'in.xml', 'out.bin', '--compress')
        data = self.read('out.bin')
        self.assertEqual(int.from_bytes(data[:4], 'big'), len(zlib.decompress(data[4:])))
        self.assertEqual(self.show('--dom', 'out.bin'), self.show('in.xml'))


class BadInput(Running):
    def test_missing(self):
        self.fail_with('File not found: none.xml', '--dom', 'none.xml')
        done = self.run_it('none.xml')
        self.assertEqual((done.returncode, done.stdout), (1, b''))
        self.assertRegex(done.stderr.decode(), r'^zylimits: .*none\.xml.*\n$')

    def test_no_xml(self):
        self.write('in.xml', 'name,value\n')
        self.fail_with('Invalid XML: Start tag expected.', 'in.xml')
        self.fail_with('Invalid XML: in.xml', '--dom', 'in.xml')

    def test_cut_off_anywhere(self):
        text = WORKED.encode()
        for size in range(len(text)):
            self.write('in.xml', text[:size])
            done = self.run_it('in.xml', 'out.xml')
            self.assertEqual(done.returncode, 1, text[:size])
            self.assertRegex(done.stderr.decode(), r'^zylimits: Invalid XML: .*\n$')
            self.assertFalse((self.directory / 'out.xml').exists())

    def test_output_cannot_be_written(self):
        for road in ((), ('--dom',)):
            done = self.run_it('in.xml', 'no/such/out.xml', *road)
            self.assertEqual((done.returncode, done.stdout), (1, b''))
            self.assertIn('No such file or directory', done.stderr.decode())


if __name__ == '__main__':
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
