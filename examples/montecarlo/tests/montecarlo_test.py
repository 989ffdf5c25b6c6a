#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Runs zyanalyse as a user would and looks at what it prints, returns and leaves behind.

montecarlo_test.py PROGRAM [CLASS...]
"""
import base64
import math
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
import xml.etree.ElementTree as ElementTree
import zlib

import nodal

PROGRAM = sys.argv[1]
HERE = pathlib.Path(__file__).resolve().parent
DATA = HERE.parent / 'data'
MSW_SCHEMA = HERE.parent.parent.parent / 'docs' / 'formats' / 'msw.xsd'
MSW = '{http://schemas.zycore.example/schemas/application/msw/}'
SALLEN_KEY = DATA / 'sallen-key.xml'
CIRCUITS = sorted(DATA.glob('*.xml'))

# A divider of half the input and a low-pass behind it: nothing in it but what a test is about to break.
SMALL = '''<Circuit title="Small" output="out">
  <Sweep from="1" to="1M" pointsPerDecade="10"/>
  <Node name="in"/><Node name="out"/>
  <VoltageSource name="V1" plus="in" minus="0"/>
  <Resistor name="R1" plus="in" minus="out" value="2k" tolerance="1"/>
  <Resistor name="R2" plus="out" minus="0" value="2k" tolerance="1"/>
  <Capacitor name="C1" plus="out" minus="0" value="1u" tolerance="5" distribution="gauss"/>
  <CutOff name="fc" title="Cut-off"/>
</Circuit>
'''


def real(text):
    data = base64.b64decode(text, validate=True)
    assert len(data) == 8
    return struct.unpack('<d', data)[0]


class Running(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        scratch = pathlib.Path(tempfile.mkdtemp(prefix='zyanalyse-'))
        self.addCleanup(shutil.rmtree, scratch, True)
        self.directory = scratch / 'work'
        self.directory.mkdir()
        # The same circuit looked at in fewer places: quick, with the same figures.
        self.coarse = scratch / 'sallen-key.xml'
        self.coarse.write_text(SALLEN_KEY.read_text().replace('pointsPerDecade="100"', 'pointsPerDecade="10"'))

    def write(self, name, content):
        (self.directory / name).write_text(content)
        return name

    def read(self, name):
        return (self.directory / name).read_bytes()

    def files(self):
        return sorted(path.relative_to(self.directory).as_posix() for path in self.directory.rglob('*') if path.is_file())

    def run_it(self, *arguments, **settings):
        return subprocess.run([PROGRAM, *map(str, arguments)], cwd=self.directory, capture_output=True, timeout=200,
                              **settings)

    def show(self, *arguments):
        """Runs it and expects success without a word about errors."""
        done = self.run_it(*arguments)
        self.assertEqual((done.returncode, done.stderr.decode()), (0, ''))
        return done.stdout.decode()

    def fail_with(self, complaint, *arguments):
        """Runs it and expects one line of complaint, nothing shown and no file made or changed."""
        before = {path: path.read_bytes() for path in self.directory.rglob('*') if path.is_file()}
        done = self.run_it(*arguments)
        self.assertEqual((done.returncode, done.stderr.decode(), done.stdout.decode()), (1, complaint + '\n', ''))
        self.assertEqual({path: path.read_bytes() for path in self.directory.rglob('*') if path.is_file()}, before)

    def only(self, circuit, case, *arguments):
        """The figures and the values of one run, as numbers."""
        found = {}
        for line in self.show(circuit, '--only', case, *arguments).splitlines():
            match = re.fullmatch(r'  (\S+) = (\S+)( \S+)?', line)
            if match:
                found[match[1]] = float(match[2])
        return found

    def results(self, file):
        """A result file: its header, and for each case its name, seed, parameters and figures."""
        root = ElementTree.parse(self.directory / file).getroot()
        self.assertEqual(root.tag, MSW + 'msw')
        cases = {}
        for step in root.iterfind(f'{MSW}steps/{MSW}step'):
            number = int(step.get('case'))
            self.assertNotIn(number, cases)
            cases[number] = {'name': step.get('name'), 'seed': step.get('seed'), 'figures': {},
                             'parameters': {parameter.get('name'): real(parameter.get('usedvalue'))
                                            for parameter in step}}
        for merit in root.iterfind(MSW + 'meritfunction'):
            for value in merit:
                cases[int(value.get('case'))]['figures'][merit.get('name')] = real(value.get('value'))
        return root.find(MSW + 'header'), cases

    def check_schema(self, *files):
        done = subprocess.run(['xmllint', '--noout', '--schema', str(MSW_SCHEMA), *files], cwd=self.directory,
                              capture_output=True, timeout=100)
        self.assertEqual(done.returncode, 0, done.stderr.decode())


class Arguments(Running):
    def test_help_version_and_schema(self):
        text = self.show('--help')
        for option in ('--mode <MODE>', '--runs <N>', '--threads <N>', '--seed <S>', '--out <DIR>', '--shards <K>',
                       '--stream', '--only <CASE>', '--timing', '--quiet', '--schema'):
            self.assertIn(option, text)
        self.assertRegex(self.show('--version'), r'^zyanalyse \d+\.\d+\.\d+\n$')
        self.assertEqual(self.show('--schema'), (DATA / 'circuit.xsd').read_text())

    def test_number_of_circuits(self):
        for files in ((), ('a.xml', 'b.xml')):
            self.fail_with('zyanalyse: one circuit is needed; see --help', *files)

    def test_mode(self):
        self.fail_with('zyanalyse: --mode takes montecarlo, worstcase or sensitivity, not "MonteCarlo"', SALLEN_KEY,
                       '--mode', 'MonteCarlo')

    def test_numbers(self):
        for option, most in (('runs', 1000000), ('threads', 1024), ('shards', 1000), ('only', 1000000)):
            for text in ('', '0', '-1', 'x', '1.5', str(most + 1), '99999999999'):
                self.fail_with(f'zyanalyse: --{option} takes a number from 1 to {most}, not "{text}"', SALLEN_KEY,
                               f'--{option}={text}')

    def test_seed(self):
        for text in ('', '-1', 'x', '18446744073709551616'):
            self.fail_with('zyanalyse: --seed takes a whole number from 0 to 18446744073709551615, not '
                           f'"{text}"', SALLEN_KEY, f'--seed={text}')

    def test_what_does_not_go_together(self):
        for option in ('--stream', '--shards=2'):
            self.fail_with('zyanalyse: --only shows one run; --shards and --stream write them all', SALLEN_KEY, '--only=1',
                           option)
        self.fail_with('zyanalyse: --runs does not go with sensitivity, which has a run for each component', SALLEN_KEY,
                       '--mode=sensitivity', '--runs=3')

    def test_a_run_that_is_not_there(self):
        self.fail_with('zyanalyse: there are 5 runs, and no run 6; --runs tells how many', SALLEN_KEY, '--only=6',
                       '--runs=5')


class Numbers(Running):
    """The figures of the nominal run against other computations."""

    def close(self, got, expected, relative=1e-9):
        self.assertLessEqual(abs(got - expected), relative * abs(expected), (got, expected))

    def test_hand_calculation_of_the_readme(self):
        r1, r2, c1, c2 = 10e3, 12e3, 47e-9, 10e-9
        root = math.sqrt(r1 * r2 * c1 * c2)
        f0 = 1 / (2 * math.pi * root)
        q = root / (c2 * (r1 + r2))
        a = 1 - 1 / (2 * q * q)
        got = self.only(SALLEN_KEY, 1)
        self.close(got['Q'], q)
        self.close(got['fc'], f0 * math.sqrt(a + math.sqrt(a * a + 1)))
        self.close(got['peak'], 20 * math.log10(q / math.sqrt(1 - 1 / (4 * q * q))))
        readme = (HERE.parent / 'README.md').read_text()
        for value in (f0, q, got['fc']):
            self.assertIn(f'{value:.9g}', readme)

    def test_all_circuits_computed_in_another_way(self):
        for file in CIRCUITS:
            circuit = nodal.Circuit(file)
            got = self.only(file, 1)
            for element in circuit.root:
                if element.get('title'):
                    with self.subTest(circuit=file.name, figure=element.get('name')):
                        self.close(got[element.get('name')], circuit.figure(element))

    def test_random_runs_computed_in_another_way(self):
        for file in CIRCUITS:
            for case in (2, 77):
                circuit = nodal.Circuit(file)
                got = self.only(file, case, '--seed', 5)
                for name in circuit.values:
                    circuit.values[name] = got.get(name, circuit.values[name])
                for element in circuit.root:
                    if element.get('title'):
                        with self.subTest(circuit=file.name, case=case, figure=element.get('name')):
                            self.close(got[element.get('name')], circuit.figure(element))

    def test_controlled_sources(self):
        # Each gives a gain of -6 out of 2 V (or 2 mA) that control it, at the load of 1 kilohm.
        for source, expected in (
                ('<Vcvs name="X" plus="out" minus="0" controlPlus="in" controlMinus="0" value="-3"/>', 3),
                ('<Vccs name="X" plus="out" minus="0" controlPlus="in" controlMinus="0" value="3m"/>', 3),
                ('<Ccvs name="X" plus="out" minus="0" control="A" value="3k"/>', 3),
                ('<Cccs name="X" plus="out" minus="0" control="A" value="-3"/>', 3)):
            self.write('c.xml', f'''<Circuit title="Control" output="out"><Sweep from="1" to="10"/>
                <Node name="in"/><Node name="a"/><Node name="out"/>
                <VoltageSource name="V" plus="in" minus="0"/>
                <Resistor name="R" plus="in" minus="a" value="1k"/><Ammeter name="A" plus="a" minus="0"/>
                <Resistor name="L" plus="out" minus="0" value="1k" tolerance="1"/>{source}
                <GainAt name="g" frequency="2"/></Circuit>''')
            with self.subTest(source=source):
                self.close(self.only('c.xml', 1)['g'], 20 * math.log10(expected))

    def test_a_current_source_and_an_inductor(self):
        # 1 A into 50 ohms beside 1 H: the voltage is 50 / sqrt(2) where the inductor has 50 ohms, too.
        self.write('c.xml', '''<Circuit title="Current" output="out"><Sweep from="1" to="100"/><Node name="out"/>
            <CurrentSource name="I" plus="0" minus="out"/><Resistor name="R" plus="out" minus="0" value="50" tolerance="1"/>
            <Inductor name="L" plus="out" minus="0" value="1"/><CutOff name="fc" reference="1M"/>
            <GainAt name="g" frequency="1M"/></Circuit>''')
        got = self.only('c.xml', 1)
        self.close(got['fc'], 50 / (2 * math.pi), 1e-7)
        self.close(got['g'], 20 * math.log10(50))

    def test_figures_do_not_depend_on_how_fine_the_sweep_is(self):
        text = SALLEN_KEY.read_text()
        self.write('c.xml', text.replace('pointsPerDecade="100"', 'pointsPerDecade="7"'))
        for name, value in self.only(SALLEN_KEY, 9).items():
            self.close(self.only('c.xml', 9)[name], value, 1e-12)


class Circuits(Running):
    def test_those_that_come_with_it_satisfy_the_schema(self):
        done = subprocess.run(['xmllint', '--noout', '--schema', str(DATA / 'circuit.xsd'), *map(str, CIRCUITS)],
                              capture_output=True, timeout=100)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        self.assertEqual(len(CIRCUITS), 3)

    def test_numbers_with_prefixes(self):
        for text, value in (('2000', 2e3), ('2k', 2e3), ('.002M', 2e3), ('2e3', 2e3), ('+2.E+3', 2e3), ('2000000m', 2e3),
                            ('0.000002G', 2e3), ('0.000000002T', 2e3), ('2000000000u', 2e3)):
            self.write('c.xml', SMALL.replace('value="2k"', f'value="{text}"'))
            self.assertEqual(self.only('c.xml', 1)['R1'], value, text)
        for text, value in (('4.7n', 4.7e-9), ('4.7p', 4.7e-12), ('4.7f', 4.7e-15), ('4.7u', 4.7e-6)):
            self.write('c.xml', SMALL.replace('value="1u"', f'value="{text}"').replace('to="1M"', 'to="100T"'))
            self.assertEqual(self.only('c.xml', 1)['C1'], value, text)

    def test_names_are_case_blind(self):
        self.write('c.xml', SMALL.replace('plus="in"', 'plus="IN"'))
        self.assertIn('fc', self.only('c.xml', 1))

    def test_a_run_becomes_a_circuit(self):
        for file in CIRCUITS:
            name = f'{file.stem}-montecarlo-case-4.xml'
            values = self.only(file, 4, '--out', 'sub')
            self.assertEqual(self.files(), [f'sub/{name}'])
            self.assertEqual(self.only(f'sub/{name}', 1), values)
            done = subprocess.run(['xmllint', '--noout', '--schema', str(DATA / 'circuit.xsd'), f'sub/{name}'],
                                  cwd=self.directory, capture_output=True, timeout=100)
            self.assertEqual(done.returncode, 0, done.stderr.decode())
            shutil.rmtree(self.directory / 'sub')


class BadInput(Running):
    def refuse(self, old, new, complaint):
        self.assertIn(old, SMALL)
        self.write('c.xml', SMALL.replace(old, new, 1))
        with self.subTest(new=new):
            self.fail_with(f'c.xml: {complaint}', 'c.xml')

    def test_the_good_circuit_is_good(self):
        self.write('c.xml', SMALL)
        self.assertAlmostEqual(self.only('c.xml', 1)['fc'], 1 / (2 * math.pi * 1e-3), 6)

    def test_files(self):
        self.fail_with('none.xml: there is no such file', 'none.xml')
        self.fail_with('.: there is no such file', '.')
        self.write('c.xml', '')
        done = self.run_it('c.xml')
        self.assertEqual((done.returncode, done.stdout), (1, b''))
        self.assertRegex(done.stderr.decode(), r'^c\.xml: .+\n$')
        self.write('c.xml', '<Board/>')
        self.fail_with('c.xml: the root element is not Circuit', 'c.xml')

    def test_cut_off_anywhere(self):
        for size in range(0, len(SMALL) - 2, 23):
            self.write('c.xml', SMALL[:size])
            done = self.run_it('c.xml', '--quiet')
            self.assertEqual((done.returncode, done.stdout), (1, b''), SMALL[:size])
            self.assertRegex(done.stderr.decode(), r'^c\.xml: [^\n]+\n$')
            self.assertEqual(self.files(), ['c.xml'])

    def test_values(self):
        for text in ('', 'x', '1x', '2 k', '1e999', 'nan', 'inf', '0x10', '1,5', '2kk', '1e3k'):
            self.refuse('value="2k"', f'value="{text}"', f'R1: the value "{text}" is no number')
        for text in ('0', '0k', '-0.0'):
            self.refuse('value="2k"', f'value="{text}"', 'R1: the value is 0')
        self.refuse('value="1u"', 'value="-1u"', 'C1: the value is below 0')
        self.refuse(' value="1u"', '', 'C1: it has no attribute "value"')

    def test_tolerances(self):
        for text in ('100', '-1'):
            self.refuse('tolerance="5"', f'tolerance="{text}"', 'C1: the tolerance is not within 0 and 100 percent')
        self.refuse('tolerance="5"', 'tolerance="5%"', 'C1: the tolerance "5%" is no number')
        self.refuse('"gauss"', '"normal"', 'C1: the distribution "normal" is neither uniform nor gauss')

    def test_nodes(self):
        self.refuse('minus="out" value', 'minus="uot" value', 'R1: the node "uot" is unknown')
        self.refuse('output="out"', 'output="exit"', 'output: the node "exit" is unknown')
        self.refuse('minus="out" value', 'minus="in" value', 'R1: both ends are at the node "in"')
        self.refuse('<Node name="out"/>', '<Node name="out"/><Node name="x"/>', 'x: no component is connected to this node')
        self.refuse('<Node name="out"/>', '<Node name="out"/><Node name="OUT"/>', 'OUT: there is another node of that name')
        self.refuse('<CutOff', '<Resistor name="R3" plus="out" minus="x" value="1"/><CutOff', 'R3: the node "x" is unknown')
        self.refuse('<Node name="out"/>', '<Node name="out"/><Node name="x"/>'
                    '<Resistor name="R3" plus="out" minus="x" value="1"/>', 'R3: nothing else is connected to its node "x"')

    def test_names(self):
        self.refuse('name="R2"', 'name="r1"', 'r1: there is another component of that name')
        self.refuse('name="R2" ', '', 'Resistor: it has no attribute "name"')
        self.refuse('<CutOff', '<PeakGain name="FC"/><CutOff', 'fc: there is another merit function of that name')

    def test_sources(self):
        self.refuse('<VoltageSource name="V1" plus="in" minus="0"/>', '<Resistor name="V1" plus="in" minus="0" value="1"/>',
                    'Small: there is no source')
        self.refuse('<CutOff', '<CurrentSource name="I1" plus="in" minus="0"/><CutOff',
                    'I1: there is a source already: V1')
        self.refuse('<CutOff', '<Cccs name="F1" plus="out" minus="0" control="R9" value="1"/><CutOff',
                    'F1: the component "R9" that controls it is unknown')
        self.refuse('<CutOff', '<Cccs name="F1" plus="out" minus="0" control="R1" value="1"/><CutOff',
                    'F1: "R1" cannot control it; put an Ammeter in line with that')
        self.refuse('<CutOff', '<Vcvs name="E1" plus="out" minus="0" controlPlus="q" controlMinus="0" value="1"/><CutOff',
                    'E1: the node "q" is unknown')

    def test_singular(self):
        self.refuse('<CutOff', '<Ammeter name="A1" plus="in" minus="0"/><CutOff',
                    'V1: the circuit is singular at this component')
        island = ('<Node name="a"/><Node name="b"/><VoltageSource name="V1" plus="in" minus="0"/>'
                  '<Resistor name="R8" plus="a" minus="b" value="3"/><Resistor name="R9" plus="a" minus="b" value="7"/>')
        self.refuse('<VoltageSource name="V1" plus="in" minus="0"/>', island,
                    'R8: the circuit is singular at the node "b" of this component')
        # A follower that feeds itself: any voltage will do.
        self.refuse('<CutOff', '<Vcvs name="E1" plus="out" minus="0" controlPlus="out" controlMinus="0" value="1"/><CutOff',
                    'E1: the circuit is singular at this component')

    def test_sweeps(self):
        for ends in ('from="0" to="1M"', 'from="10" to="10"', 'from="10" to="1"', 'from="-1" to="1"'):
            self.refuse('from="1" to="1M"', ends, 'Sweep: it must begin above 0 Hz and end above its begin')
        self.refuse('pointsPerDecade="10"', 'pointsPerDecade="0"', 'Sweep: it must have 1 to 100000 points')
        self.refuse('pointsPerDecade="10"', 'pointsPerDecade="100k"', 'Sweep: it must have 1 to 100000 points')
        self.refuse('pointsPerDecade="10"', 'pointsPerDecade="1.5"', 'Sweep: pointsPerDecade is no whole number')
        self.refuse('<Sweep from="1" to="1M" pointsPerDecade="10"/>', '',
                    'Sweep: it must begin above 0 Hz and end above its begin')

    def test_merit_functions(self):
        self.refuse('to="1M"', 'to="10"', 'fc: the nominal circuit has no such place within the sweep')
        self.refuse('<CutOff', '<GainAt name="g" frequency="0"/><CutOff', 'g: the frequency is not above 0')
        self.refuse('<CutOff name="fc"', '<CutOff name="fc" reference="-1"', 'fc: the reference is below 0')
        self.refuse('<CutOff', '<NotchFrequency name="n"/><CutOff',
                    'n: the nominal circuit has no such place within the sweep')
        # At direct current nothing holds the voltage between two capacitors.
        self.refuse('<VoltageSource name="V1" plus="in" minus="0"/>',
                    '<Node name="m"/><VoltageSource name="V1" plus="in" minus="0"/>'
                    '<Capacitor name="C8" plus="in" minus="m" value="1"/><Capacitor name="C9" plus="m" minus="out" value="1"/>',
                    'C8: the circuit is singular at the node "m" of this component')

    def test_what_only_the_schema_sees(self):
        reason = ('not built as a circuit; "zyanalyse --schema > circuit.xsd" and "xmllint --noout --schema circuit.xsd" '
                  'tell where')
        self.refuse('<CutOff', '<Diode name="D1"/><CutOff', reason)
        self.refuse('name="fc"', 'name="fc" colour="red"', reason)
        self.refuse('name="C1"', 'name="C:1"', reason)

    def test_nothing_to_vary(self):
        self.write('c.xml', re.sub(' tolerance="[0-9]"', '', SMALL))
        self.fail_with('zyanalyse: no component of the circuit has a tolerance', 'c.xml')


class Runs(Running):
    def test_same_bytes_for_any_number_of_threads(self):
        for mode in ('montecarlo', 'worstcase', 'sensitivity'):
            for threads in (1, 2, 8):
                runs = ['--runs', 300] if mode == 'montecarlo' else []
                self.show(self.coarse, '--mode', mode, *runs, '--threads', threads, '--out', threads, '--quiet', '--stream')
            for name in (f'sallen-key-{mode}.msw', f'sallen-key-{mode}-stream.msw', f'sallen-key-{mode}-response.png'):
                self.assertEqual(self.read(f'1/{name}'), self.read(f'2/{name}'), name)
                self.assertEqual(self.read(f'1/{name}'), self.read(f'8/{name}'), name)

    def test_a_run_alone_gives_the_same(self):
        self.show(self.coarse, '--runs', 40, '--seed', 7, '--quiet')
        _, cases = self.results('sallen-key-montecarlo.msw')
        for case in (1, 2, 23, 40):
            alone = self.only(self.coarse, case, '--runs', 40, '--seed', 7)
            self.assertEqual({**cases[case]['parameters'], **cases[case]['figures']}, alone)

    def test_a_longer_analysis_begins_like_a_shorter_one(self):
        for runs in (10, 250):
            self.show(self.coarse, '--runs', runs, '--out', runs, '--quiet')
        _, few = self.results('10/sallen-key-montecarlo.msw')
        _, many = self.results('250/sallen-key-montecarlo.msw')
        self.assertEqual(few, {case: many[case] for case in few})

    def test_seeds(self):
        self.show(self.coarse, '--runs', 200, '--seed', 1, '--out', 'a', '--quiet')
        self.show(self.coarse, '--runs', 200, '--seed', 2, '--out', 'b', '--quiet')
        one, other = self.results('a/sallen-key-montecarlo.msw')[1], self.results('b/sallen-key-montecarlo.msw')[1]
        self.assertEqual(one[1], other[1])
        self.assertIsNone(one[1]['seed'])
        seeds = [cases[case]['seed'] for cases in (one, other) for case in range(2, 201)]
        self.assertEqual(len(set(seeds)), 398)

    def test_values_keep_to_their_tolerances_and_distributions(self):
        self.show(self.coarse, '--runs', 3000, '--quiet', '--threads', 2)
        _, cases = self.results('sallen-key-montecarlo.msw')
        for name, nominal, tolerance, deviation in (('R1', 10e3, .05, .05 / math.sqrt(3)), ('C2', 10e-9, .1, .1 / 3)):
            spread = [cases[case]['parameters'][name] / nominal - 1 for case in range(2, 3001)]
            self.assertLessEqual(max(map(abs, spread)), tolerance * (1 + 1e-12))
            self.assertGreater(max(map(abs, spread)), tolerance * 0.9)
            self.assertLess(abs(sum(spread) / len(spread)), 4 * deviation / math.sqrt(len(spread)))
            measured = math.sqrt(sum(value * value for value in spread) / len(spread))
            self.assertLess(abs(measured / deviation - 1), 0.05, name)

    def test_worst_case_has_every_corner_once(self):
        self.show(self.coarse, '--mode', 'worstcase', '--quiet')
        _, cases = self.results('sallen-key-worstcase.msw')
        self.assertEqual(sorted(cases), list(range(1, 18)))
        corners = {tuple(cases[case]['parameters'].values()) for case in range(2, 18)}
        self.assertEqual(len(corners), 16)
        self.assertEqual({corner[0] for corner in corners}, {9500.0, 10500.0})
        self.assertEqual(cases[2]['name'], 'Param:corner R1- R2- C1- C2-')

    def test_worst_case_at_random_when_there_are_too_many_corners(self):
        self.show(self.coarse, '--mode', 'worstcase', '--runs', 6, '--quiet')
        _, cases = self.results('sallen-key-worstcase.msw')
        self.assertEqual(sorted(cases), list(range(1, 7)))
        for case in range(2, 7):
            self.assertRegex(cases[case]['name'], rf'^Param:corner R1[+-] R2[+-] C1[+-] C2[+-]/Case:{case}$')
            self.assertIsNotNone(cases[case]['seed'])

    def test_sensitivity_has_a_run_for_each_value(self):
        self.show(DATA / 'twin-t-notch.xml', '--mode', 'sensitivity', '--quiet')
        _, cases = self.results('twin-t-notch-sensitivity.msw')
        self.assertEqual([cases[case]['name'] for case in sorted(cases)],
                         ['Param:nominal', 'Refdes:R1/DevParam:res', 'Refdes:R2/DevParam:res', 'Refdes:C3/DevParam:cap',
                          'Refdes:C4/DevParam:cap', 'Refdes:C1/DevParam:cap', 'Refdes:C2/DevParam:cap',
                          'Refdes:R3/DevParam:res', 'Refdes:E1/DevParam:gain'])
        self.assertEqual(cases[2]['parameters'], {'R1': 68e3 * 1.01})

    def test_a_figure_that_some_runs_lack(self):
        # The nominal cut-off lies just within the sweep, that of about half of the runs beyond it.
        self.write('c.xml', SMALL.replace('to="1M"', 'to="159.2"'))
        text = self.show('c.xml', '--runs', 50)
        missing = int(re.search(r', none in (\d+)\n', text)[1])
        _, cases = self.results('c-montecarlo.msw')
        self.assertEqual(missing, sum(math.isnan(cases[case]['figures']['fc']) for case in cases))
        self.assertTrue(5 < missing < 45, missing)


class ResultFile(Running):
    def test_header(self):
        self.show(self.coarse, '--runs', 3, '--seed', 9, '--quiet')
        header, _ = self.results('sallen-key-montecarlo.msw')
        self.assertEqual(header.attrib, {'analysis': 'montecarlo runs=3 seed=9', 'date': '2026-02-14',
                                         'title': 'Sallen-Key low-pass, 670 Hz, E24 values', 'group': 'sallen-key'})

    def test_schema_and_content(self):
        self.show(DATA / 'lc-ladder.xml', '--runs', 30, '--quiet')
        self.check_schema('lc-ladder-montecarlo.msw')
        root = ElementTree.parse(self.directory / 'lc-ladder-montecarlo.msw').getroot()
        self.assertEqual([(merit.get('value'), merit.get('name')) for merit in root.iterfind(MSW + 'meritfunction')],
                         [('Cut-off frequency, Hz', 'fc'), ('Peak gain, dB', 'peak'), ('Gain at 2 MHz, dB', 'a2M')])
        step = root.find(f'{MSW}steps/{MSW}step[@case="2"]')
        self.assertEqual(step.get('name'), 'Param:sample 2')
        self.assertEqual([parameter.get('name') for parameter in step], ['RS', 'C1', 'L2', 'C3', 'L4', 'C5', 'RL'])
        self.assertEqual((real(step[2].get('nom')), real(step[2].get('tol'))), (13e-6, 10))

    def test_a_circuit_without_merit_functions(self):
        self.write('c.xml', re.sub('  <CutOff.*\n', '', SMALL))
        self.show('c.xml', '--runs', 5, '--quiet', '--shards', 2, '--stream')
        self.check_schema('c-montecarlo.msw', 'c-montecarlo-master.msw', 'c-montecarlo-stream.msw')
        self.assertEqual(sorted(self.results('c-montecarlo.msw')[1]), [1, 2, 3, 4, 5])
        self.assertIn('<h2>Seed Table</h2>', self.read('c-montecarlo.html').decode())

    def test_titles_with_markup(self):
        self.write('c.xml', SMALL.replace('title="Small"', 'title="a &lt;b&gt; &amp; ü"').replace(
            'title="Cut-off"', 'title="f &lt; g"'))
        self.show('c.xml', '--runs', 2, '--quiet')
        header, _ = self.results('c-montecarlo.msw')
        self.assertEqual(header.get('title'), 'a <b> & ü')
        page = self.read('c-montecarlo.html').decode()
        self.assertIn('<td>a &lt;b&gt; &amp; ü</td>', page)
        self.assertIn('<th>f &lt; g, Hz</th>', page)


class Shards(Running):
    def test_merged_they_are_the_whole_file(self):
        for shards in (0, 1, 2, 7, 400):
            self.show(self.coarse, '--runs', 350, '--out', shards, '--quiet', *(['--shards', shards] if shards else []))
            self.assertEqual(self.read(f'{shards}/sallen-key-montecarlo.msw'), self.read('0/sallen-key-montecarlo.msw'))
            self.assertEqual(self.read(f'{shards}/sallen-key-montecarlo.html'),
                             self.read('0/sallen-key-montecarlo.html'))

    def test_parts(self):
        self.show(self.coarse, '--runs', 10, '--quiet', '--shards', 3)
        names = [f'sallen-key-montecarlo-shard-{part}.msw' for part in (1, 2, 3)]
        self.check_schema('sallen-key-montecarlo-master.msw', *names)
        root = ElementTree.parse(self.directory / 'sallen-key-montecarlo-master.msw').getroot()
        self.assertEqual([file.get('path') for file in root.iterfind(f'{MSW}append/{MSW}file')],
                         [str(self.directory.resolve() / name) for name in names])
        found = []
        for part, name in enumerate(names, 1):
            header, cases = self.results(name)
            self.assertEqual(header.attrib, {'coreid': str(part)})
            found.append(sorted(cases))
        self.assertEqual(found, [[1, 2, 3], [4, 5, 6], [7, 8, 9, 10]])


class Stream(Running):
    def test_says_the_same_in_the_order_of_cases(self):
        self.show(self.coarse, '--runs', 300, '--quiet', '--stream')
        self.check_schema('sallen-key-montecarlo-stream.msw')
        whole, stream = (self.results(f'sallen-key-montecarlo{name}.msw') for name in ('', '-stream'))
        self.assertEqual(whole[0].attrib, stream[0].attrib)
        self.assertEqual(whole[1], stream[1])
        root = ElementTree.parse(self.directory / 'sallen-key-montecarlo-stream.msw').getroot()
        self.assertEqual([int(step.get('case')) for step in root.iterfind(f'{MSW}steps/{MSW}step')],
                         list(range(1, 301)))


class Page(Running):
    def rows(self, name):
        return re.findall(r'<tr>(.*?)</tr>', self.read(name).decode())

    def test_monte_carlo(self):
        self.show(self.coarse, '--runs', 4, '--quiet', '--threads', 2)
        page = self.read('sallen-key-montecarlo.html').decode()
        self.assertIn('<title>Monte Carlo Log</title>', page)
        self.assertIn('<td>Num Cores:</td><td>2</td>', page)
        _, cases = self.results('sallen-key-montecarlo.msw')
        for case, label in ((1, 'Var: nominal'), (3, 'Var: sample 3')):
            figures = ''.join(f'<td>{value:g}</td>' for value in cases[case]['figures'].values())
            self.assertIn(f'<td>{case}</td><td>{label}</td>{figures}', self.rows('sallen-key-montecarlo.html'))

    def test_worst_case(self):
        self.show(self.coarse, '--mode', 'worstcase', '--quiet')
        page = self.read('sallen-key-worstcase.html').decode()
        self.assertIn('<title>Worst Case Log</title>', page)
        self.assertIn('<td>Var: corner R1+ R2- C1- C2-</td>', page)

    def test_sensitivity(self):
        self.show(self.coarse, '--mode', 'sensitivity', '--quiet')
        page = self.read('sallen-key-sensitivity.html').decode()
        self.assertIn('<title>Sensitivity Analysis Report</title>', page)
        row = next(row for row in self.rows('sallen-key-sensitivity.html') if '<td>Ref: R1</td>' in row)
        cells = re.findall(r'<td>(.*?)</td>', row)
        self.assertEqual((cells[0], cells[-3:]), ('2', ['R1', '10000', '10100']))
        _, cases = self.results('sallen-key-sensitivity.msw')
        nominal, moved = cases[1]['figures']['fc'], cases[2]['figures']['fc']
        self.assertEqual(cells[2:5], [f'{moved:g}', f'{moved - nominal:g}',
                                      f'{(moved - nominal) / moved * 10000 / 100:g}'])


class Workbook(Running):
    def sheets(self, name):
        try:
            import openpyxl
        except ImportError:
            self.skipTest('openpyxl is not installed')
        return openpyxl.load_workbook(self.directory / name)

    def test_runs(self):
        self.show(self.coarse, '--runs', 12, '--quiet')
        book = self.sheets('sallen-key-montecarlo.xlsx')
        self.assertEqual(book.sheetnames, ['Runs', 'Histogram'])
        sheet = book['Runs']
        self.assertEqual([cell.value for cell in sheet[1]],
                         ['Case', 'Run', 'Component', 'Nominal', 'Value', 'Cut-off frequency, Hz', 'Quality factor',
                          'Peak gain, dB', 'Gain at 10 kHz, dB'])
        _, cases = self.results('sallen-key-montecarlo.msw')
        self.assertEqual(sheet.max_row, 1 + 12 * 4)
        self.assertIn('A6:A9', {str(area) for area in sheet.merged_cells.ranges})
        for case in (1, 2, 12):
            top = 2 + 4 * (case - 1)
            self.assertEqual(sheet.cell(top, 1).value, case)
            for at, (name, value) in enumerate(cases[case]['parameters'].items()):
                self.assertEqual(sheet.cell(top + at, 3).value, name)
                self.assertEqual(sheet.cell(top + at, 5).value, float(f'{value:g}'))
            for at, value in enumerate(cases[case]['figures'].values()):
                self.assertEqual(sheet.cell(top, 6 + at).value, float(f'{value:g}'))

    def test_histogram(self):
        self.show(self.coarse, '--runs', 500, '--quiet')
        sheet = self.sheets('sallen-key-montecarlo.xlsx')['Histogram']
        _, cases = self.results('sallen-key-montecarlo.msw')
        bins = round(2 * 500 ** (1 / 3))
        self.assertEqual(sheet.max_row, 1 + 4 * bins)
        for at, name in enumerate(('fc', 'Q', 'peak', 'a10k')):
            values = [case['figures'][name] for case in cases.values()]
            rows = [[cell.value for cell in row] for row in sheet.iter_rows(2 + at * bins, 1 + (at + 1) * bins)]
            self.assertAlmostEqual(rows[0][1], min(values), delta=abs(min(values)) * 1e-5)
            self.assertAlmostEqual(rows[-1][2], max(values), delta=abs(max(values)) * 1e-5)
            self.assertEqual(sum(row[3] for row in rows), 500)
            self.assertAlmostEqual(sum(row[4] for row in rows), 1, places=4)
            low, width = min(values), (max(values) - min(values)) / bins
            counts = [0] * bins
            for value in values:
                counts[min(int((value - low) / width), bins - 1)] += 1
            self.assertEqual([row[3] for row in rows], counts)

    def test_no_histogram_for_sensitivity(self):
        self.show(self.coarse, '--mode', 'sensitivity', '--quiet')
        self.assertEqual(self.sheets('sallen-key-sensitivity.xlsx').sheetnames, ['Runs'])


class Picture:
    """A picture of 8 bits a channel, decoded as far as a test needs it."""

    def __init__(self, data):
        assert data.startswith(b'\x89PNG\r\n\x1a\n')
        pieces, at = {}, 8
        while at < len(data):
            size, kind = struct.unpack('>I4s', data[at:at + 8])
            body = data[at + 8:at + 8 + size]
            assert zlib.crc32(kind + body) == struct.unpack('>I', data[at + 8 + size:at + 12 + size])[0]
            pieces[kind] = pieces.get(kind, b'') + body
            at += size + 12
        self.width, self.height, depth, colours = struct.unpack('>IIBB', pieces[b'IHDR'][:10])
        assert (depth, colours) == (8, 2)
        self.rows = []
        raw, stride, above = zlib.decompress(pieces[b'IDAT']), 3 * self.width, bytes(3 * self.width)
        for row in range(self.height):
            line = bytearray(raw[row * (stride + 1) + 1:(row + 1) * (stride + 1)])
            above = self.unfiltered(raw[row * (stride + 1)], line, above)
            self.rows.append(above)

    @staticmethod
    def unfiltered(kind, line, above):
        for i in range(len(line)):
            left, up, corner = (line[i - 3], above[i], above[i - 3]) if i > 2 else (0, above[i], 0)
            guess = left + up - corner
            nearest = min((abs(guess - left), 0, left), (abs(guess - up), 1, up), (abs(guess - corner), 2, corner))[2]
            line[i] = line[i] + (0, left, up, (left + up) // 2, nearest)[kind] & 255
        return bytes(line)

    def count(self, red, green, blue):
        return sum(row[i:i + 3] == bytes((red, green, blue)) for row in self.rows for i in range(0, 3 * self.width, 3))


class Pictures(Running):
    FILL, LINE = (0x9c, 0xc3, 0xe8), (0x1f, 0x5f, 0xa8)

    def test_response(self):
        for mode in ('montecarlo', 'worstcase', 'sensitivity'):
            self.show(self.coarse, '--mode', mode, *(['--runs', 20] if mode == 'montecarlo' else []), '--quiet')
            picture = Picture(self.read(f'sallen-key-{mode}-response.png'))
            self.assertEqual((picture.width, picture.height), (920, 520))
            self.assertGreater(picture.count(*self.FILL), 100)
            self.assertGreater(picture.count(*self.LINE), 300)

    def test_histogram(self):
        self.show(self.coarse, '--runs', 200, '--quiet')
        picture = Picture(self.read('sallen-key-montecarlo-histogram.png'))
        self.assertEqual(picture.width, 920)
        self.assertGreater(picture.count(*self.FILL), 5000)

    def test_one_run_only(self):
        self.show(self.coarse, '--runs', 1, '--quiet')
        self.assertEqual(len(self.files()), 5)

    def test_without_a_screen_or_a_session(self):
        surroundings = {name: value for name, value in os.environ.items()
                        if name not in ('QT_QPA_PLATFORM', 'DISPLAY', 'WAYLAND_DISPLAY', 'XDG_RUNTIME_DIR')}
        done = self.run_it(self.coarse, '--runs', 2, '--quiet', env=surroundings)
        self.assertEqual((done.returncode, done.stderr), (0, b''))


class Interruption(Running):
    def interrupt(self, *arguments):
        """Begins a long analysis, interrupts it when the stream has grown, returns what it says."""
        process = subprocess.Popen([PROGRAM, str(self.coarse), '--runs', '1000000', '--stream', *arguments],
                                   cwd=self.directory, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        stream, deadline = self.directory / 'sallen-key-montecarlo-stream.msw', time.monotonic() + 100
        while not stream.exists() or stream.stat().st_size < 30000:
            self.assertLess(time.monotonic(), deadline)
            self.assertIsNone(process.poll())
            time.sleep(0.01)
        process.send_signal(signal.SIGINT)
        out, complaint = process.communicate(timeout=100)
        self.assertEqual((process.returncode, out), (130, b''))
        return re.fullmatch(
            r'zyanalyse: interrupted; sallen-key-montecarlo\.msw holds (\d+) of 1000000 runs\n', complaint.decode())

    def test_leaves_a_file_of_the_finished_runs(self):
        told = int(self.interrupt('--threads', '2')[1])
        self.check_schema('sallen-key-montecarlo.msw', 'sallen-key-montecarlo-stream.msw')
        _, cases = self.results('sallen-key-montecarlo.msw')
        self.assertEqual(len(cases), told)
        self.assertIn(1, cases)
        for case in (1, 2, max(cases)):
            self.assertEqual({**cases[case]['parameters'], **cases[case]['figures']},
                             self.only(self.coarse, case, '--runs', 1000000))
        self.assertEqual(self.results('sallen-key-montecarlo-stream.msw')[1], cases)
        self.assertEqual(len(self.files()), 2)

    def test_in_parts(self):
        told = int(self.interrupt('--shards', '3')[1])
        parts = [self.results(f'sallen-key-montecarlo-shard-{part}.msw')[1] for part in (1, 2, 3)]
        self.assertEqual(sum(map(len, parts)), told)
        self.assertEqual(len(self.results('sallen-key-montecarlo.msw')[1]), told)

    def test_progress_on_a_terminal(self):
        master, slave = pty.openpty()
        process = subprocess.Popen([PROGRAM, str(self.coarse), '--runs', '400', '--threads', '2'], cwd=self.directory,
                                   stdout=subprocess.PIPE, stderr=slave)
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
        process.communicate(timeout=100)
        self.assertEqual(process.returncode, 0)
        self.assertIn('[..............................]   0 %  montecarlo', seen.decode())
        self.assertRegex(seen.decode(), r'\[#+\.*\] +\d+ %  montecarlo  [0-9.]+ runs/s, \d+ s left')
        self.assertTrue(seen.endswith(b'\r\x1b[K'), 'the bar is wiped')


class BadOutput(Running):
    def test_no_directory(self):
        self.write('file', '')
        self.fail_with('file/x: the directory cannot be made', self.coarse, '--runs', 2, '--out', 'file/x')

    def test_what_is_no_file_is_not_replaced(self):
        for name in ('.msw', '.html', '.xlsx', '-response.png', '-histogram.png', '-stream.msw', '-master.msw',
                     '-shard-1.msw'):
            with self.subTest(name=name):
                place = self.directory / name / f'sallen-key-montecarlo{name}'
                place.mkdir(parents=True)
                arguments = (self.coarse, '--runs', 200, '--stream', '--shards', 1, '--out', name)
                self.fail_with(f'{name}/sallen-key-montecarlo{name}: is a directory', *arguments)
                place.rmdir()
                os.mkfifo(place)
                self.fail_with(f'{name}/sallen-key-montecarlo{name}: is no regular file', *arguments)

    def test_full_disk(self):
        """No file may grow beyond a bound: that of the name fails, those before it do not."""
        for bound, name in ((500, '-stream.msw'), (2560, '.html'), (12000, '-response.png')):
            with self.subTest(name=name):
                done = self.run_it(self.coarse, '--mode', 'sensitivity', '--stream', '--out', name,
                                   preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (bound, bound)))
                self.assertEqual((done.returncode, done.stdout), (1, b''))
                self.assertRegex(done.stderr.decode(), rf'^{name}/sallen-key-sensitivity{re.escape(name)}: [^\n]+\n$')


class Summary(Running):
    def test_monte_carlo(self):
        text = self.show(self.coarse, '--runs', 1200, '--out', 'out')
        lines = text.splitlines()
        self.assertEqual(lines[0],
                         'Analysed Sallen-Key low-pass, 670 Hz, E24 values: montecarlo, 1,200 runs, seed 1')
        match = re.fullmatch(r'  Cut-off frequency +879\.53 Hz   mean (\S+) Hz, deviation (\S+) Hz, from (\S+) Hz '
                             r'\(case (\d+)\) to (\S+) (k?)Hz \(case (\d+)\)', lines[1])
        _, cases = self.results('out/sallen-key-montecarlo.msw')
        values = {case: cases[case]['figures']['fc'] for case in cases}
        self.assertEqual(int(match[4]), min(values, key=values.get))
        self.assertEqual(int(match[7]), max(values, key=values.get))
        mean = sum(values.values()) / 1200
        self.assertAlmostEqual(float(match[1]), mean, delta=0.01)
        deviation = math.sqrt(sum((value - mean) ** 2 for value in values.values()) / 1199)
        self.assertAlmostEqual(float(match[2]), deviation, delta=0.01)
        written = {line.split()[1].rstrip(':') for line in lines if line.startswith('Written')}
        self.assertEqual(written, set(self.files()))
        self.assertRegex(lines[-1], r'^Time     \d+\.\d\d s$')

    def test_sensitivity_names_what_moves_a_figure_most(self):
        text = self.show(self.coarse, '--mode', 'sensitivity')
        # The derivative of ln Q by ln E1 is R1 C1 / (C2 (R1 + R2)).
        self.assertAlmostEqual(10 * 47 / (10 * 22), 2.14, 2)
        self.assertRegex(text, r'  Quality factor +1\.0795   moved most by Ref: E1: 2\.14 % a percent\n')

    def test_timing(self):
        text = self.show(self.coarse, '--runs', 50, '--quiet', '--timing')
        match = re.fullmatch(r'Time     \S+ s\nSolver   (\S+) s of (\S+) s processor time, (\S+) %\n', text)
        self.assertTrue(0 < float(match[1]) < float(match[2]))
        self.assertAlmostEqual(float(match[3]), 100 * float(match[1]) / float(match[2]), delta=1)


class Shipped(Running):
    """What comes with the program does what its page says."""

    def test_all_circuits_in_all_modes(self):
        for circuit in CIRCUITS:
            for mode in ('montecarlo', 'worstcase', 'sensitivity'):
                self.show(circuit, '--mode', mode, *(['--runs', 30] if mode == 'montecarlo' else []), '--quiet')
                self.check_schema(f'{circuit.stem}-{mode}.msw')

    def test_the_page_tells_all_options(self):
        page = (HERE.parent / 'README.md').read_text()
        for option in re.findall(r'--[a-z]+', self.show('--help')):
            self.assertIn(option, page)


if __name__ == '__main__':
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
