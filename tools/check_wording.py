#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Checks that no file speaks of papers or people outside the project, nor of the machine it was written on.

The words are put together from pieces, so that this file passes its own check.
"""
import re
import subprocess
import sys

import zyheaders

PAPER = 'sp' + 'ec'
WORDS = re.compile('|'.join([
    rf'\b{PAPER}\.md\b',
    rf'\bthe {PAPER}(ification)?\b',
    r'\bParts? [0-9]+\.' + r'[0-9]+',
    r'(\.\./|/work/|\b)' + 'shared' + rf'/({PAPER}|design|advice|hooks|house-style|keelbase|vectors|peers|data)\b',
    r'/' + 'work' + r'/(wt|main)\b',
    r'\b(DEVELOPERS|' + 'COM' + r'PASS)\.md\b',
    r'\b(' + '|'.join(['sub' + 'agent', 'language ' + 'model', 'L' + 'LM', 'Cla' + 'ude', 'Anth' + 'ropic', 'C' + 'EO']) + r')\b',
]), re.IGNORECASE)
NAMES = re.compile(rf'{PAPER}\.md|part[-_]?[0-9]+[._-][0-9]+', re.IGNORECASE)
DATA = ('.xsd', '.csv', '.png', '.pdf', '.xlsx', '.zip', '.ico')


def tracked(root):
    """The project's files: what git knows or would take; without git all that lies outside of build trees."""
    listed = subprocess.run(['git', '-C', str(root), 'ls-files', '-co', '--exclude-standard', '-z'], capture_output=True)
    if listed.returncode == 0:
        names = listed.stdout.decode().split('\0')
        return [root / name for name in names if name and (root / name).is_file()]
    return [path for path in root.rglob('*') if path.is_file() and not path.relative_to(root).parts[0].startswith(('build', '.git'))]


def main():
    root = zyheaders.root_of(*sys.argv[1:2])
    problems = []
    files = tracked(root)
    for path in files:
        where = path.relative_to(root).as_posix()
        if NAMES.search(where):
            problems.append(f'{where}: the name of this file')
        if path.suffix in DATA:
            continue
        for number, line in enumerate(path.read_text(errors='replace').splitlines(), 1):
            if WORDS.search(line):
                problems.append(f'{where}:{number}: {line.strip()[:120]}')
    for problem in problems:
        print(problem)
    print(f'{len(files)} files, {len(problems)} problems')
    return 1 if problems or not files else 0


if __name__ == '__main__':
    sys.exit(main())
