# SPDX-License-Identifier: BSD-3-Clause
"""The circuits once more, computed in another way: currents of the nodes, Gauss, bisection.

Shares nothing with the program: inductors are admittances, the row of a driven node tells its voltage and not its
currents, the direct current is a microhertz.
"""
import cmath
import math
import xml.etree.ElementTree as ElementTree

PREFIXES = {'f': -15, 'p': -12, 'n': -9, 'u': -6, 'm': -3, 'k': 3, 'M': 6, 'G': 9, 'T': 12}


def number(text):
    if text[-1] in PREFIXES:
        return float(f'{text[:-1]}e{PREFIXES[text[-1]]}')
    return float(text)


class Circuit:
    """A document whose voltage sources, controlled ones too, have one end at the ground."""

    def __init__(self, file):
        self.root = ElementTree.parse(file).getroot()
        self.values = {child.get('name'): number(child.get('value')) for child in self.root if child.get('value')}

    def sweep(self):
        sweep = self.root.find('Sweep')
        return number(sweep.get('from')), number(sweep.get('to'))

    def gain(self, frequency):
        """The voltage of the output when the input is 1 V."""
        s = 2j * math.pi * frequency
        nodes = [node.get('name') for node in self.root.findall('Node')]
        rows = {node: {} for node in nodes}  # node -> {node: factor}; the key None is the right side
        driven = {}
        for part in self.root:
            value = self.values.get(part.get('name'))
            if part.tag == 'VoltageSource':
                driven[part.get('plus')] = {part.get('plus'): 1, None: 1}
            elif part.tag == 'Vcvs':
                driven[part.get('plus')] = {part.get('plus'): 1, part.get('controlPlus'): -value}
            elif part.tag in ('Resistor', 'Capacitor', 'Inductor'):
                admittance = {'Resistor': lambda: 1 / value, 'Capacitor': lambda: s * value,
                              'Inductor': lambda: 1 / (s * value)}[part.tag]()
                for here, there in ((part.get('plus'), part.get('minus')), (part.get('minus'), part.get('plus'))):
                    if here != '0':
                        rows[here][here] = rows[here].get(here, 0) + admittance
                        if there != '0':
                            rows[here][there] = rows[here].get(there, 0) - admittance
        rows.update(driven)
        return solve([[rows[node].get(column, 0) for column in nodes] + [rows[node].get(None, 0)] for node in nodes])[
            nodes.index(self.root.get('output'))]

    def power(self, frequency):
        return abs(self.gain(frequency)) ** 2

    def samples(self, count=2000):
        low, high = self.sweep()
        return [low * (high / low) ** (i / count) for i in range(count + 1)]

    def figure(self, element):
        title, reference = element.tag, number(element.get('reference', '0')) or 1e-6
        if title == 'GainAt':
            return 10 * math.log10(self.power(number(element.get('frequency'))))
        if title == 'PeakGain':
            return 10 * math.log10(self.extreme(-1)[1])
        if title == 'NotchFrequency':
            return self.extreme(1)[0]
        if title == 'NotchDepth':
            return 10 * math.log10(self.extreme(1)[1])
        half = self.power(reference) / 2
        if title == 'CutOff':
            return self.crossings(half)[0]
        if title == 'NotchQ':
            low, high = self.crossings(half)[:2]
            return self.extreme(1)[0] / (high - low)
        if title == 'ResonanceQ':
            passed = self.gain(reference)
            frequency = self.crossing(lambda f: (self.gain(f) / passed).real, self.samples())
            return abs(self.gain(frequency) / passed)
        raise ValueError(title)

    def crossing(self, function, samples):
        for low, high in zip(samples, samples[1:]):
            if (function(low) < 0) != (function(high) < 0):
                rises = function(low) < 0
                for _ in range(60):
                    middle = (low + high) / 2
                    if (function(middle) < 0) == rises:
                        low = middle
                    else:
                        high = middle
                return low
        raise ValueError('no crossing')

    def crossings(self, half):
        samples, found = self.samples(), []
        for pair in zip(samples, samples[1:]):
            if (self.power(pair[0]) > half) != (self.power(pair[1]) > half):
                found.append(self.crossing(lambda f: self.power(f) - half, list(pair)))
        return found

    def extreme(self, sign):
        """Place and value of the lowest (1) or highest (-1) power: thirds, on a linear scale."""
        samples = self.samples()
        at = min(range(len(samples)), key=lambda i: sign * self.power(samples[i]))
        if at in (0, len(samples) - 1):
            return samples[at], self.power(samples[at])
        low, high = samples[at - 1], samples[at + 1]
        for _ in range(60):
            left, right = low + (high - low) / 3, high - (high - low) / 3
            if sign * self.power(left) < sign * self.power(right):
                high = right
            else:
                low = left
        return low, self.power(low)


def solve(matrix):
    """Gauss with the largest pivot; each row ends with its right side."""
    size = len(matrix)
    for column in range(size):
        pivot = max(range(column, size), key=lambda row: abs(matrix[row][column]))
        matrix[column], matrix[pivot] = matrix[pivot], matrix[column]
        for row in range(size):
            if row != column:
                factor = matrix[row][column] / matrix[column][column]
                if factor != 0:
                    matrix[row] = [a - factor * b for a, b in zip(matrix[row], matrix[column])]
    assert all(cmath.isfinite(value) for row in matrix for value in row)
    return [matrix[i][size] / matrix[i][i] for i in range(size)]
