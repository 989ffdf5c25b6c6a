#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Checks that every oddity that must stay is marked once and pinned by a test, and every such test by a mark.

A mark is the documentation command "deliberate" with an id in braces; the test's name contains "Deliberate_" and the
id with underscores for hyphens. More words may follow, so that an id may have several tests.
"""
import re
import sys

import zyheaders

MARK = re.compile(r'\\deliberate\{([^}]*)\}')
ID = re.compile(r'[a-z0-9]+(-[a-z0-9]+)*')
TEST = re.compile(r'\bTEST(?:_F|_P)?\(\s*(\w+)\s*,\s*(\w*?Deliberate_(\w+))\s*\)')


def sources(root, *folders):
    for folder in folders:
        for path in sorted((root / folder).rglob('*')):
            if path.suffix in ('.h', '.cpp'):
                yield path, path.read_text(errors='replace')


def line_of(text, position):
    return text.count('\n', 0, position) + 1


def marks(root, problems):
    """{id: place}"""
    found = {}
    for path, text in sources(root, 'include', 'src', 'keelbase/include', 'keelbase/src'):
        for mark in MARK.finditer(text):
            name = mark.group(1)
            place = f'{path.relative_to(root)}:{line_of(text, mark.start())}'
            if not ID.fullmatch(name):
                problems.append(f'{place}: "{name}" is not in kebab case')
            elif name in found:
                problems.append(f'{place}: "{name}" is marked at {found[name]} too')
            else:
                found[name] = place
    return found


def owner(words, names):
    """The longest id that the words begin with."""
    fitting = [name for name in names if (words + '_').startswith(name.replace('-', '_') + '_')]
    return max(fitting, key=len, default=None)


def main():
    root = zyheaders.root_of(*sys.argv[1:2])
    problems = []
    names = marks(root, problems)
    tested = set()
    for path, text in sources(root, 'tests', 'keelbase/tests', 'examples'):
        for test in TEST.finditer(text):
            name = owner(test.group(3), names)
            tested.add(name)
            if name is None:
                problems.append(f'{path.relative_to(root)}:{line_of(text, test.start())}: nothing is marked for '
                                f'{test.group(1)}.{test.group(2)}')
    problems += [f'{place}: no test is named Deliberate_{name.replace("-", "_")}'
                 for name, place in names.items() if name not in tested]
    for problem in problems:
        print(problem)
    print(f'{len(names)} marks, {len(problems)} problems')
    return 1 if problems else 0


if __name__ == '__main__':
    sys.exit(main())
