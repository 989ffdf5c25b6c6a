#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Compiles every public header alone and included twice, warnings being errors.

usage: check_headers.py ROOT STAMPS COMPILER STANDARD [SYSTEM_INCLUDE_DIR...]

STAMPS is a file that remembers what compiled, by the contents of a header and of all headers of ours behind it; only
what has changed since is compiled again.
"""
import hashlib
import json
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

FLAGS = ['-fsyntax-only', '-fPIC', '-pedantic-errors', '-Wall', '-Wextra', '-Wconversion', '-Wshadow', '-Wnon-virtual-dtor',
         '-Woverloaded-virtual', '-Werror', '-DQT_NO_KEYWORDS', '-DQT_NO_CAST_FROM_ASCII', '-DQT_NO_CAST_TO_ASCII']
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)


def compile_alone(command, name):
    source = f'#include <{name}>\n#include <{name}>\n'
    done = subprocess.run(command, input=source, text=True, capture_output=True)
    return name, done.returncode, done.stderr


def closure(name, texts, seen):
    """The header and every header of ours that it includes, directly or not."""
    if name in texts and name not in seen:
        seen.add(name)
        for used in INCLUDE.findall(texts[name]):
            closure(used, texts, seen)
    return seen


def keys(texts, command):
    """{header: hash of all that its compilation depends on, the system's headers aside}"""
    version = subprocess.run([command[0], '--version'], text=True, capture_output=True, check=True).stdout
    result = {}
    for name in texts:
        parts = [version, *command] + [texts[used] for used in sorted(closure(name, texts, set()))]
        result[name] = hashlib.sha256('\0'.join(parts).encode()).hexdigest()
    return result


def main():
    root, stamps = Path(sys.argv[1]), Path(sys.argv[2])
    compiler, standard = sys.argv[3:5]
    system = [f'-isystem{directory}' for directory in sys.argv[5:] if directory]
    places = [root / 'include', root / 'keelbase' / 'include']
    command = [compiler, f'-std={standard}', *FLAGS, *(f'-I{place}' for place in places), *system, '-x', 'c++', '-']
    texts = {path.relative_to(place).as_posix(): path.read_text() for place in places for path in sorted(place.rglob('*.h'))}
    wanted = keys(texts, command)
    known = json.loads(stamps.read_text()) if stamps.is_file() else {}
    changed = [name for name in texts if known.get(name) != wanted[name]]
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(lambda name: compile_alone(command, name), changed))
    failed = {name: errors for name, code, errors in results if code != 0}
    stamps.write_text(json.dumps({name: key for name, key in wanted.items() if name not in failed}))
    for name, errors in failed.items():
        print(f'<{name}> does not compile alone as {standard} with {compiler}:\n{errors}')
    print(f'{len(texts)} headers, {len(changed)} changed since they last compiled, {len(failed)} do not compile')
    return 1 if failed or not texts else 0


if __name__ == '__main__':
    sys.exit(main())
