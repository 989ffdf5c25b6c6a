# SPDX-License-Identifier: BSD-3-Clause
# Computes once more, from its definition, what reading a result file derives: deltas, normalised sensitivities with their
# status, and labels.
#
#   derived_figures.py make FOLDER COUNT     writes COUNT random result files, the same ones each time
#   derived_figures.py check FOLDER RESULTS  compares the figures of all files with what a program has computed
#
# RESULTS has, for each file, a line "table NAME", and for each run of it a line "run CASE DESCRIPTION", the text as
# hexadecimal bytes and "-" when empty, followed by a line "VALUE DELTA NORM STATUS" for each merit function.
import base64
import math
import random
import struct
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path
from xml.sax.saxutils import quoteattr

NUMBERS = [0.0, -0.0, 1.0, -1.0, 5e-324, 1e308, -1e308, 1e-9, 1000.0, math.inf, -math.inf, math.nan]
FAMILIES = [['Lot', 'DevParam', 'Tol'], ['Refdes', 'DevParam', 'PDF', 'Term'], ['Param', 'PDF'], ['Lot', 'Refdes'], ['DevParam']]
KEYS = ['Lot', 'DevParam', 'Tol', 'Refdes', 'PDF', 'Term', 'Param']
WORDS = ['A', 'b', '', 'R1', 'C 2', 'Gauss', 'größe', '"5 %"', '<&>', '10']


# ---- random files

def make_number(chance):
    kind = chance.random()
    if kind < 0.2:
        return chance.choice(NUMBERS)
    if kind < 0.5:
        return float(chance.randint(-3, 3))
    return chance.uniform(-1000, 1000)


def make_name(chance):
    if chance.random() < 0.2:
        return chance.choice(['', 'nominal', '/', 'a:b:c', ':', 'Lot', 'Lot:A:B/Refdes:R1'])
    keys = list(chance.choice(FAMILIES))
    if chance.random() < 0.4:
        keys = keys[:1] + chance.sample(KEYS, chance.randint(0, 4)) + chance.choice([[], ['Unknown']])
    if chance.random() < 0.3:
        chance.shuffle(keys)
    case = chance.choice([str, str, str.lower, str.upper])
    return '/'.join(case(key) + ':' + chance.choice(WORDS[:4 if chance.random() < 0.7 else len(WORDS)]) for key in keys)


def make_names(chance, count):
    """Names of which many differ in one value only, so that short labels do not tell them apart."""
    names = [make_name(chance) for _ in range(max(1, count))]
    for _ in range(count):
        pieces = chance.choice(names).split('/')
        changed = max(chance.randrange(len(pieces)), chance.randrange(len(pieces)))
        pieces[changed] = pieces[changed].split(':')[0] + ':' + chance.choice(WORDS)
        names.append('/'.join(pieces))
    return names


def make_parameters(chance):
    """Pairs of nominal and used value; many of them agree on one quotient, or nearly."""
    change = chance.choice([0.01, 0.1, -0.5])
    pairs = []
    for _ in range(chance.choice([0, 1, 1, 2, 2, 3, 5])):
        kind = chance.random()
        if kind < 0.5:
            nominal = chance.choice([1000.0, 2e-9, 47.0, -3.0])
            pairs.append((nominal, nominal * (1 + change * (1 + chance.choice([0, 0, 0, 1e-9, 9.99e-8, 1.001e-7, 1e-3])))))
        elif kind < 0.65:
            nominal = make_number(chance)
            pairs.append((nominal, nominal))
        else:
            pairs.append((make_number(chance), make_number(chance)))
    return pairs


def real(number):
    return quoteattr(base64.b64encode(struct.pack('<d', number)).decode())


def make_file(chance, path):
    cases = chance.sample(range(-3, 25), chance.randint(0, 12))
    if chance.random() < 0.85 and 1 not in cases:
        cases.insert(chance.randint(0, len(cases)), 1)
    merits = []
    for merit in range(chance.randint(0, 4)):
        lines = [f'<meritfunction value="M{merit}" name="">']
        for case in cases:
            # Some runs lack a value, and some are known by their values alone.
            if chance.random() < 0.9:
                lines.append(f'<sensval case="{case}" value={real(make_number(chance))}/>')
        if chance.random() < 0.1:
            lines.append(f'<sensval case="77" value={real(make_number(chance))}/>')
        merits.append(''.join(lines) + '</meritfunction>')
    steps = []
    names = make_names(chance, len(cases) // 2)
    for case in cases + ([chance.choice(cases)] if cases and chance.random() < 0.1 else []):
        name = chance.choice(names)
        texts = f' name={quoteattr(name)}' if chance.random() < 0.85 else ''
        texts += f' description={quoteattr(chance.choice(WORDS))}' if chance.random() < 0.3 else ''
        parameters = ''.join(f'<parameter name="p" nom={real(nominal)} usedvalue={real(used)}/>'
                             for nominal, used in make_parameters(chance))
        if chance.random() < 0.95:
            steps.append(f'<step case="{case}"{texts}>{parameters}</step>')
    parts = ['<steps>' + '\n'.join(steps) + '</steps>'] + merits
    if chance.random() < 0.8:
        parts = merits + parts[:1]
    path.write_text('<msw version="1.0"><header/>' + '\n'.join(parts) + '</msw>\n', encoding='utf-8')


# ---- what a file derives

class Run:
    def __init__(self):
        self.name = self.description = ''
        self.values = []
        self.parameters = []


def read_real(element, name):
    return struct.unpack('<d', base64.b64decode(element.attrib[name]))[0]


def read_runs(path):
    runs = {}
    merits = 0
    for part in ElementTree.parse(path).getroot():
        for child in part:
            run = runs.setdefault(int(child.attrib['case']), Run())
            if part.tag == 'meritfunction':
                run.values += [0.0] * (merits + 1 - len(run.values))
                run.values[merits] = read_real(child, 'value')
                continue
            name, description = child.attrib.get('name', ''), child.attrib.get('description', '')
            if name:
                run.name = name
            else:
                run.description = description or 'Run=' + child.attrib['case']
            run.parameters += [(read_real(p, 'nom'), read_real(p, 'usedvalue')) for p in child]
        merits += part.tag == 'meritfunction'
    return runs


def quotient(parameter, value, delta):
    nominal, used = parameter
    if used == nominal or value == 0:
        return 0.0, True
    return delta / value * nominal / (used - nominal), False


def sensitivity(run, value, delta):
    """(norm, status) of one merit function of a run that is not the reference."""
    first, failed = quotient(run.parameters[0] if run.parameters else (0.0, 0.0), value, delta)
    diverged = False
    for parameter in run.parameters[1:]:
        other, failed = quotient(parameter, value, delta)
        difference = abs(other) if first == 0 else abs(other - first) / abs(first)
        if difference > 1e-7:
            diverged = True
            break
    if failed:
        return 0.0, 1
    return (0.0, 2) if diverged else (first, 0)


def label(name, level):
    keys = {}
    for piece in name.split('/'):
        parts = piece.split(':')
        if len(parts) == 2:
            keys.setdefault(parts[0].lower(), parts[1])

    def add(least, before, key, after=''):
        return before + keys[key] + after if level >= least and key in keys else ''

    if level >= 5:
        return name
    if 'lot' in keys:
        return add(1, 'Lot: ', 'lot') + add(2, '.', 'devparam') + add(2, ' (TOL=', 'tol', ')')
    if 'refdes' in keys:
        return (add(1, 'Ref: ', 'refdes') + add(2, '.', 'devparam') + add(3, ' (', 'pdf', ')')
                + add(4, ' (term ', 'term', ')'))
    if 'param' in keys:
        return add(1, 'Var: ', 'param') + add(3, ' (', 'pdf', ')')
    return name


def set_labels(runs):
    for level in range(1, 6):
        labelled = {}
        for run in runs.values():
            if not run.description:
                labelled.setdefault(label(run.name, level), []).append(run)
        for text, sharing in labelled.items():
            if len(sharing) == 1:
                sharing[0].description = text


def derive(path):
    """{case: (description, [(value, delta, norm, status)])}"""
    runs = read_runs(path)
    references = list(runs[1].values) if 1 in runs else []
    derived = {}
    for run in runs.values():
        run.values += [0.0] * (len(references) - len(run.values))
    set_labels(runs)
    for case, run in runs.items():
        figures = []
        for i, value in enumerate(run.values):
            delta = value - references[i] if i < len(references) else 0.0
            figures.append((value, delta) + ((0.0, 0) if case == 1 else sensitivity(run, value, delta)))
        derived[case] = (run.description, figures)
    return derived


# ---- comparison

def read_results(path):
    """{file: {case: (description, figures)}}"""
    results = {}
    for line in path.read_text().splitlines():
        words = line.split(' ')
        if words[0] == 'table':
            table = results.setdefault(words[1], {})
        elif words[0] == 'run':
            figures = []
            table[int(words[1])] = (bytes.fromhex(words[2].strip('-')).decode(), figures)
        else:
            figures.append(tuple(float.fromhex(word) for word in words[:3]) + (int(words[3]),))
    return results


def spelled(table):
    """A text in which every NaN is the same and every other number has all its bits."""
    return '\n'.join(f'{case} {text!r} ' + ', '.join(' '.join(float(x).hex() for x in figures) for figures in records)
                     for case, (text, records) in sorted(table.items()))


def check(folder, results):
    computed = read_results(results)
    files = sorted(folder.glob('*.msw'))
    wrong, statuses, labels = 0, [0, 0, 0, 0], 0
    for file in files:
        expected = derive(file)
        if file.name not in computed or spelled(expected) != spelled(computed[file.name]):
            wrong += 1
            if wrong <= 3:
                print(f'{file.name}: expected\n{spelled(expected)}\ncomputed\n{spelled(computed.get(file.name, {}))}')
        for text, figures in expected.values():
            labels += text.startswith(('Lot: ', 'Ref: ', 'Var: '))
            for record in figures:
                statuses[record[3]] += 1
    print(f'{len(files)} tables, {wrong} differ')
    # A comparison of nothing would find no difference.
    rich = all(count > len(files) for count in statuses[:3]) and labels > len(files)
    print('all statuses, many labels' if rich else f'too little to compare: {statuses}, {labels} labels')


def main():
    folder = Path(sys.argv[2])
    if sys.argv[1] == 'make':
        chance = random.Random(42)
        for number in range(int(sys.argv[3])):
            make_file(chance, folder / f'{number}.msw')
    else:
        check(folder, Path(sys.argv[3]))


main()
