#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Checks that every public class has a doc comment, and a test file of its name or a test that names it."""
import re
import sys

import zyheaders


def main():
    root = zyheaders.root_of(*sys.argv[1:2])
    tests = [path for path in (root / 'tests').rglob('*Test.cpp')]
    files = {path.name for path in tests}
    words = set(re.findall(r'\w+', '\n'.join(path.read_text(errors='replace') for path in tests)))
    problems = []
    classes = zyheaders.all_classes(root)
    for item in classes:
        place = f'include/{item.header}:{item.line}'
        if not item.documented:
            problems.append(f'{place}: {item.name} has no doc comment')
        if f'{item.name}Test.cpp' not in files and item.name not in words:
            problems.append(f'{place}: no test names {item.name}')
    for problem in problems:
        print(problem)
    print(f'{len(classes)} classes, {len(problems)} problems')
    return 1 if problems or not classes else 0


if __name__ == '__main__':
    sys.exit(main())
