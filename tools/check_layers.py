#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Checks that every source stem includes only what tools/layers.txt allows it.

Complains about: a stem that is not listed or not there, an include of the same level outside the knot or of a higher level, the
tests' side of the support library in the library itself, system headers outside the platform folder, and questions which
system it is anywhere but there, in the support library and in the headers with the export macros. Levels cannot form a cycle; within a knot cycles are what the knot is for.
"""
import re
import sys
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]')
SYSTEM_HEADER = re.compile(r'^(windows\.h|winsock2?\.h|unistd\.h|fcntl\.h|dlfcn\.h|pthread\.h|io\.h|direct\.h|sys/.*)$', re.I)
SYSTEM_MACRO = re.compile(r'^\s*#\s*(if|ifdef|ifndef|elif)\b.*\b(_WIN32|_WIN64|__linux__|__unix__|__APPLE__|Q_OS_\w+)\b')
SYSTEM_PLACES = ('src/Platform/', 'include/ZyExport.h')
MACRO_PLACES = (*SYSTEM_PLACES, 'keelbase/src/', 'keelbase/include/keelbase/KbExport.h')


def stem_of(name):
    stem = Path(name).name.rsplit('.', 1)[0]
    return stem[:-2] if stem.endswith('_p') else stem


def read_layers(path):
    """{stem: (level, knot or None)}; a stem that is told twice is an error."""
    layers = {}
    for number, line in enumerate(path.read_text().splitlines(), 1):
        words = line.split('#', 1)[0].split()
        if not words:
            continue
        if len(words) not in (2, 3) or not words[0].isdigit():
            raise SystemExit(f'{path}:{number}: expected "level stem [knot]"')
        stem = words[1]
        if stem in layers:
            raise SystemExit(f'{path}:{number}: {stem} is listed twice')
        layers[stem] = (int(words[0]), words[2] if len(words) == 3 else None)
    return layers


def check_knots(layers):
    levels = {}
    for stem, (level, knot) in layers.items():
        if knot and levels.setdefault(knot, level) != level:
            yield f'tools/layers.txt: knot {knot} spreads over levels {levels[knot]} and {level}'


def may_include(layers, user, used):
    level, knot = layers[user]
    used_level, used_knot = layers[used]
    return user == used or used_level < level or (used_level == level and knot and knot == used_knot)


def check_file(root, path, layers, own):
    where = path.relative_to(root).as_posix()
    user = stem_of(path.name)
    if user not in layers:
        yield f'{where}: {user} is not listed in tools/layers.txt'
        return
    for number, line in enumerate(path.read_text().splitlines(), 1):
        found = INCLUDE.match(line)
        if not found:
            continue
        header = found.group(1)
        if SYSTEM_HEADER.match(header) and not where.startswith(SYSTEM_PLACES):
            yield f'{where}:{number}: <{header}> belongs into src/Platform'
        if header.endswith('KbHost.h'):
            yield f'{where}:{number}: {header} is for hosts and tests'
        used = stem_of(header)
        if Path(header).name not in own:
            continue
        if used not in layers:
            yield f'{where}:{number}: {used} is not listed in tools/layers.txt'
        elif not may_include(layers, user, used):
            yield (f'{where}:{number}: {user} (level {layers[user][0]}) may not include {used} '
                   f'(level {layers[used][0]})')


def sources(root, *folders):
    return [path for folder in folders for path in sorted((root / folder).rglob('*')) if path.suffix in ('.h', '.cpp')]


def check_macros(root):
    """One source for all systems; where they differ there is a file for each."""
    for path in sources(root, 'include', 'src', 'keelbase', 'tests', 'examples', 'bench', 'fuzz', 'docs'):
        where = path.relative_to(root).as_posix()
        if where.startswith(MACRO_PLACES):
            continue
        for number, line in enumerate(path.read_text().splitlines(), 1):
            if SYSTEM_MACRO.match(line):
                yield f'{where}:{number}: asks which system it is; that belongs into src/Platform'


def check_keelbase(root):
    """The support library stands below: it sees neither this library nor Qt."""
    for path in sources(root, 'keelbase'):
        for number, line in enumerate(path.read_text().splitlines(), 1):
            found = INCLUDE.match(line)
            if found and re.match(r'(Zy|Q[A-Z]|Qt)', Path(found.group(1)).name):
                yield f'{path.relative_to(root)}:{number}: the support library may not include {found.group(1)}'


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent).resolve()
    layers = read_layers(root / 'tools' / 'layers.txt')
    files = sources(root, 'include', 'src')
    own = {path.name for path in files}
    problems = list(check_knots(layers))
    problems += [f'tools/layers.txt: there is no {stem}' for stem in sorted(set(layers) - {stem_of(path.name) for path in files})]
    for path in files:
        problems += check_file(root, path, layers, own)
    problems += check_macros(root)
    problems += check_keelbase(root)
    for problem in problems:
        print(problem)
    print(f'{len(files)} files, {len(problems)} problems')
    return 1 if problems else 0


if __name__ == '__main__':
    sys.exit(main())
