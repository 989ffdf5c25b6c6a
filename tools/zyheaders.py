# SPDX-License-Identifier: BSD-3-Clause
"""What the checks read out of the public headers: their names and the classes that they define."""
import re
from dataclasses import dataclass
from pathlib import Path

UMBRELLA = ('ZyCore.h', 'ZyCoreFwd.h')
DEFINITION = re.compile(r'^(class|struct)\s+(?:ZYCORE_EXPORT\s+)?(\w+)\s*(?:final\s*)?(?=$|[:{]|:[^:])')
ALIAS = re.compile(r'^using\s+(Zy\w+)\s*=\s*(Zy\w+<(?:int|unsigned int|double|char)>);')


@dataclass
class PublicClass:
    header: str
    line: int
    key: str          # class or struct
    name: str
    template: str     # "template <class T>" without default arguments, or empty
    documented: bool

    def forward(self):
        return (self.template + '\n' if self.template else '') + f'{self.key} {self.name};'


def root_of(argument=None):
    return Path(argument or Path(__file__).parent.parent).resolve()


def headers(root):
    """The public headers, without the two that are made from them."""
    return [path for path in sorted((root / 'include').glob('*.h')) if path.name not in UMBRELLA]


def _is_comment(line):
    return line.lstrip().startswith(('*', '/*', '//'))


def _has_comment_above(lines, index):
    while index > 0 and not lines[index - 1].strip():
        return False
    return index > 0 and lines[index - 1].rstrip().endswith('*/') and _opens_doxygen(lines, index - 1)


def _opens_doxygen(lines, index):
    while index > 0 and '/*' not in lines[index]:
        index -= 1
    return '/**' in lines[index]


def classes(path):
    """Every class that the header defines at file level; the house style puts those at the start of a line."""
    lines = path.read_text().splitlines()
    for index, line in enumerate(lines):
        found = DEFINITION.match(line)
        if not found or line.rstrip().endswith(';') and '{' not in line:
            continue
        first = index
        template = ''
        if index > 0 and lines[index - 1].startswith('template <'):
            first = index - 1
            if lines[first].startswith('template <>'):
                continue
            template = re.sub(r'\s*=\s*[^,>]+(?:<[^<>]*>)?', '', lines[first].rstrip())
        yield PublicClass(path.name, index + 1, found.group(1), found.group(2), template,
                          _has_comment_above(lines, first))


def all_classes(root):
    return [item for path in headers(root) for item in classes(path)]


def aliases(root):
    """Plain second names of class templates, such as ZyPoint: (name, what it stands for)."""
    found = []
    for path in headers(root):
        found += [ALIAS.match(line).groups() for line in path.read_text().splitlines() if ALIAS.match(line)]
    return found
