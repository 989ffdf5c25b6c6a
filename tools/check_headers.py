#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Compiles every public header alone and included twice, warnings being errors.

usage: check_headers.py ROOT COMPILER STANDARD [SYSTEM_INCLUDE_DIR...]
"""
import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

FLAGS = ['-fsyntax-only', '-fPIC', '-pedantic-errors', '-Wall', '-Wextra', '-Wconversion', '-Wshadow', '-Wnon-virtual-dtor',
         '-Woverloaded-virtual', '-Werror', '-DQT_NO_KEYWORDS', '-DQT_NO_CAST_FROM_ASCII', '-DQT_NO_CAST_TO_ASCII']


def compile_alone(command, name):
    source = f'#include <{name}>\n#include <{name}>\n'
    done = subprocess.run(command, input=source, text=True, capture_output=True)
    return name, done.returncode, done.stderr


def main():
    root = Path(sys.argv[1])
    compiler, standard = sys.argv[2:4]
    system = [f'-isystem{directory}' for directory in sys.argv[4:] if directory]
    places = [root / 'include', root / 'keelbase' / 'include']
    command = [compiler, f'-std={standard}', *FLAGS, *(f'-I{place}' for place in places), *system, '-x', 'c++', '-']
    names = [path.relative_to(place).as_posix() for place in places for path in sorted(place.rglob('*.h'))]
    if not names:
        print('no header was found')
        return 1
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(lambda name: compile_alone(command, name), names))
    failed = [(name, errors) for name, code, errors in results if code != 0]
    for name, errors in failed:
        print(f'<{name}> does not compile alone as {standard} with {compiler}:\n{errors}')
    print(f'{len(names)} headers, {len(failed)} do not compile')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
