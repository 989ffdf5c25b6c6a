#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Checks what a built library exports: its own names only, and nothing of the hidden state classes.

usage: check_symbols.py ROOT LIBRARY PREFIX...

Code of the standard library and of Qt that our sources instantiate comes out as weak symbols, because their headers ask
for that. Such copies are the same in every module, and any of them may serve; they are allowed as long as they are weak,
and everything else is not.
"""
import re
import subprocess
import sys

WEAK = set('VWuvw')
# A mangled name up to its outermost scope: tables and thunks, functions that hold statics, nested names, qualifiers.
HEAD = re.compile(r'_Z(T[VIST]|T[hvc][nv\d_]*_|G[VR])?Z*N?[VK]*')
STANDARD = re.compile(r'S[tabsiod]|9__gnu_cxx|10__cxxabiv1')
SOURCE_NAME = re.compile(r'(\d+)(\w+)')
# The linker's own marks, which it exports because a library of Qt does.
MARKS = {'__bss_start', '_edata', '_end'}


def symbols(library):
    """(kind, mangled name) of everything that is exported."""
    done = subprocess.run(['nm', '-D', '--defined-only', library], text=True, capture_output=True, check=True)
    return [line.split()[1:3] for line in done.stdout.splitlines()]


def readable(mangled):
    return subprocess.run(['c++filt', mangled], text=True, capture_output=True).stdout.strip()


def outermost(mangled):
    """The name of the namespace, class or function that a symbol belongs to; "St" for the standard library."""
    head = HEAD.match(mangled)
    if not head:
        return mangled
    rest = mangled[head.end():]
    if STANDARD.match(rest):
        return 'St'
    name = SOURCE_NAME.match(rest)
    if name:
        return name.group(2)[:int(name.group(1))]
    # A free operator belongs to the first of our types that it takes.
    parameter = re.search(r'\d+((Zy|Y)\w+)', rest)
    return parameter.group(1) if parameter else rest


def main():
    library = sys.argv[2]
    prefixes = tuple(sys.argv[3:])
    exported = symbols(library)
    problems = []
    for kind, mangled in exported:
        if mangled in MARKS:
            continue
        name = outermost(mangled)
        if '7Private' in mangled:
            problems.append(f'hidden state is exported: {kind} {readable(mangled)}')
        elif not name.startswith(prefixes) and not ((name == 'St' or name.startswith('Q')) and kind in WEAK):
            problems.append(f'not a name of ours: {kind} {readable(mangled)} ({mangled})')
    for problem in problems:
        print(problem)
    print(f'{len(exported)} symbols, {len(problems)} problems')
    return 1 if problems or not exported else 0


if __name__ == '__main__':
    sys.exit(main())
