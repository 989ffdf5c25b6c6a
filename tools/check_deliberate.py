#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Checks that every oddity that must stay is marked once and pinned by a test, and every such test by a mark; and
that docs/oddities.md lists them all. With --write the list is written anew.

A mark is the documentation command "deliberate" with an id in braces; the test's name contains "Deliberate_" and the
id with underscores for hyphens. More words may follow, so that an id may have several tests. What the list says of
an oddity is the text of its mark, up to the next blank line or command of the comment.
"""
import argparse
import re
import sys
from dataclasses import dataclass

import zyheaders

MARK = re.compile(r'\\deliberate\{([^}]*)\}')
ID = re.compile(r'[a-z0-9]+(-[a-z0-9]+)*')
TEST = re.compile(r'\bTEST(?:_F|_P)?\(\s*(\w+)\s*,\s*(\w*?Deliberate_(\w+))\s*\)')
COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|^#[^\n]*', re.DOTALL | re.MULTILINE)
TYPE = re.compile(r'\b(?:class|struct|enum)\b(?:\s+ZYCORE_\w+)?\s+([\w:]*\w)')
FUNCTION = re.compile(r'((?:\w+::)*(?:operator\s*(?:\(\)|[^\s(]+(?:\s+\w+)*(?:\s*[&*])?)|~?\w+))\s*\(')
VARIABLE = re.compile(r'(\w+)\s*(?:\[\]\s*)?(?:=|$)')

LIST = 'docs/oddities.md'
# The folders of the tests, which are those of the sources, in the order of the list.
FOLDERS = {'Core': 'Strings, containers, values', 'Files': 'Paths, devices, files', 'XML': 'XML', 'Tables': 'Tables and CSV',
           'Office': 'Archives and spreadsheets', 'Threads': 'Threads', 'Time': 'Time', 'Settings': 'Settings',
           'Misc': 'Result files, reports, numbers, colours', 'Util': 'Services of applications'}
HEAD = '''# Deliberate oddities

What looks wrong here and is right: hosts, files and habits rest on it. Each is marked `\\deliberate{id}` in the
comment where it lives and held by a test that is named after the id, so that nobody mends it by mistake, and nobody
copies it elsewhere.

`tools/check_deliberate.py --write` makes this page from the marks and the tests; a test fails when it is out of date.
'''


@dataclass
class Mark:
    path: str
    line: int
    where: str  # the class or function that the comment belongs to
    what: str   # the text of the mark

    @property
    def place(self):
        return f'{self.path}:{self.line}'


@dataclass
class Test:
    path: str
    name: str


def sources(root, *folders):
    for folder in folders:
        for path in sorted((root / folder).rglob('*')):
            if path.suffix in ('.h', '.cpp'):
                yield path.relative_to(root).as_posix(), path.read_text(errors='replace')


def line_of(text, position):
    return text.count('\n', 0, position) + 1


def blanked(text):
    """The code alone: comments, strings and directives are blanks, and every position stays."""
    return COMMENT_OR_TEXT.sub(lambda found: re.sub(r'[^\n]', ' ', found.group()), text)


def name_in(declaration):
    """The name that a declaration declares; empty for a block without one."""
    declaration = re.sub(r'template\s*<[^;{(]*?>\s*(?=class|struct|[\w:\[])', '', declaration)
    declaration = re.sub(r'\[\[.*?\]\]', '', declaration).strip()
    kind = re.match(r'(?:friend\s+)?' + TYPE.pattern, declaration)
    found = kind or FUNCTION.search(declaration) or VARIABLE.search(declaration)
    if kind:
        special = re.match(r'<[^{:;]*>', declaration[kind.end():])
        return kind.group(1) + (re.sub(r',\s*void>$', '>', special.group()) if special else '')
    return re.sub(r'\s+', ' ', found.group(1)).strip() if found else ''


def scopes_at(code, position):
    """What is open at a position, outermost first: (name, class, struct or enum or nothing of these)."""
    scopes, start = [], 0
    for edge in re.finditer(r'[{};]|(?:public|protected|private):', code[:position]):
        if edge.group() == '{':
            head = code[start:edge.start()]
            outside = re.match(r'\s*(?:namespace|extern)\b', head)
            kind = TYPE.search(head)
            scopes.append(('', '') if outside else (name_in(head), kind.group().split()[0] if kind else ''))
        elif edge.group() == '}' and scopes:
            scopes.pop()
        start = edge.end()
    return [scope for scope in scopes if scope[0]]


def where(code, position, end):
    """What a comment belongs to: what it stands beside, what follows it, or the function that it stands in."""
    scopes = scopes_at(code, position)
    names = [name for name, _ in scopes]
    if not scopes or scopes[-1][1]:
        beside = code[code.rfind('\n', 0, position) + 1:position].strip()
        following = beside.rstrip(',;') or re.match(r'[^;{}]*', code[end:]).group()
        if scopes and scopes[-1][1] == 'enum':
            following = following.split(',')[0]
        names.append(name_in(following.split(')')[0] + ')' if '(' in following else following))
    return '::'.join(name for name in names if name)


def comment_of(text, position):
    """(lines of the comment from a position on, where it ends)"""
    begin = text.rfind('\n', 0, position) + 1
    if '//' in text[begin:position]:
        first, *others = text[position:].splitlines(keepends=True)
        lines, end = [first.strip()], position + len(first)
        for line in others:
            if not line.lstrip().startswith('//'):
                break
            lines.append(line.strip().lstrip('/').strip())
            end += len(line)
        return lines, end
    end = text.find('*/', position)
    return [line.strip().removeprefix('*').strip() for line in text[position:end].splitlines()], end + 2


def words_of(lines):
    """The text of the mark that a comment begins with, for a page."""
    taken = [MARK.sub('', lines[0], count=1)]
    for line in lines[1:]:
        if not line or re.match(r'\\(?!a\b)', line):
            break
        taken.append(line)
    text = re.sub(r'\s+', ' ', ' '.join(taken)).strip()
    text = re.sub(r'\s*\\(?:throws|threads|cost|return|deliberate).*', '', text)
    text = re.sub(r'\\a (\w+)', r'`\1`', text).replace('|', r'\|')
    return re.sub(r'\b((?:Zy\w+|XMLReport\w+|sp_\w+)(?:::~?\w+)*(?:\(\))?|on[A-Z]\w+|(?:\w+::)*\w+\(\))(?![\w`])',
                  r'`\1`', re.sub(r'(`[^`]*`)', lambda found: found.group().replace('Zy', 'Z\0y').replace('()', '(\0)'), text)
                  ).replace('\0', '')


def marks(root, problems):
    """{id: mark}"""
    found = {}
    for path, text in sources(root, 'include', 'src', 'keelbase/include', 'keelbase/src'):
        code = blanked(text)
        for mark in MARK.finditer(text):
            name = mark.group(1)
            lines, end = comment_of(text, mark.start())
            new = Mark(path, line_of(text, mark.start()), where(code, mark.start(), end), words_of(lines))
            if not ID.fullmatch(name):
                problems.append(f'{new.place}: "{name}" is not in kebab case')
            elif name in found:
                problems.append(f'{new.place}: "{name}" is marked at {found[name].place} too')
            else:
                found[name] = new
                if len(new.what.split()) < 3:
                    problems.append(f'{new.place}: "{name}" is marked without a reason')
    return found


def owner(words, names):
    """The longest id that the words begin with."""
    fitting = [name for name in names if (words + '_').startswith(name.replace('-', '_') + '_')]
    return max(fitting, key=len, default=None)


def tests(root, names, problems):
    """{id: tests}"""
    found = {name: [] for name in names}
    for path, text in sources(root, 'tests', 'keelbase/tests', 'examples'):
        for test in TEST.finditer(text):
            name = owner(test.group(3), names)
            if name is None:
                problems.append(f'{path}:{line_of(text, test.start())}: nothing is marked for '
                                f'{test.group(1)}.{test.group(2)}')
            else:
                found[name].append(Test(path, f'{test.group(1)}.{test.group(2)}'))
    problems += [f'{names[name].place}: no test is named Deliberate_{name.replace("-", "_")}'
                 for name, pins in found.items() if not pins]
    return found


def folder_of(pins):
    """The folder of the sources that the first test belongs to."""
    parts = pins[0].path.split('/') if pins else []
    return parts[1] if len(parts) > 2 and parts[0] == 'tests' else 'Others'


def page(names, pinned):
    groups = {}
    for name, mark in names.items():
        groups.setdefault(folder_of(pinned[name]), []).append((name, mark))
    order = list(FOLDERS)
    text = HEAD
    for folder in sorted(groups, key=lambda folder: (order.index(folder) if folder in order else len(order), folder)):
        text += f'\n## {FOLDERS.get(folder, folder)}\n\n| id | what | where | test |\n|---|---|---|---|\n'
        for name, mark in sorted(groups[folder], key=lambda item: (item[1].path, item[1].line)):
            shown = '<br>'.join(f'[{test.name.split(".")[0]}](../{test.path})' for test in pinned[name][:1])
            text += f'| `{name}` | {mark.what} | [`{mark.where or mark.path}`](../{mark.path}) | {shown} |\n'
    return text


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument('root', nargs='?')
    parser.add_argument('--write', action='store_true', help=f'write {LIST} anew')
    options = parser.parse_args()
    root = zyheaders.root_of(options.root)
    problems = []
    names = marks(root, problems)
    text = page(names, tests(root, names, problems))
    path = root / LIST
    if options.write:
        path.parent.mkdir(exist_ok=True)
        path.write_text(text)
    elif not path.is_file() or path.read_text() != text:
        problems.append(f'{LIST} does not match the marks and tests; run tools/check_deliberate.py --write')
    for problem in problems:
        print(problem)
    print(f'{len(names)} marks, {len(problems)} problems')
    return 1 if problems else 0


if __name__ == '__main__':
    sys.exit(main())
