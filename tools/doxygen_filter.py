#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Filter of the public headers on their way into Doxygen: gives words to members that need none for a reader.

Copies, moves, destructors, comparisons and what carries a name of the standard library with its meaning get one sentence
each, unless they have a comment of their own; an overload directly below a commented declaration is told as such. So
Doxygen can insist on a comment for everything else. Line numbers stay as they are.
"""
import re
import sys

WORDS = {
    'operator==': 'Whether both are equal.',
    'operator!=': 'Whether they are not equal.',
    'operator<': 'Whether this one comes before.',
    'operator<=': 'Whether this one does not come behind.',
    'operator>': 'Whether this one comes behind.',
    'operator>=': 'Whether this one does not come before.',
    'operator*': 'What it refers to; the class says what happens when there is nothing.',
    'operator->': 'What it refers to; the class says what happens when there is nothing.',
    'operator++': 'Goes on by one.',
    'operator bool': 'Whether there is an object.',
    'swap': 'Exchanges the two.',
}
NAME = re.compile(r'(~?\b[A-Za-z_]\w*|\boperator\s*(?:\(\)|\[\]|[^\w\s(]+)|\boperator [\w:]+(?: const)? ?[&*]?)\(')
TYPES = re.compile(r'using (element_type|pointer|reference|value_type|difference_type|iterator_category) =')
NOT_A_DECLARATION = re.compile(r'\s*(//|/?\*|#|:|return\b|if\b|for\b|while\b|public:|protected:|private:|friend\b|static_assert)')


def special_member(line):
    """The words for a default constructor, copy, move or destructor."""
    text = re.sub(r'^\s*(?:(?:constexpr|inline|virtual|explicit) )*', '', line)
    assignment = re.match(r'(\w+)(?:<\w+>)? & operator=\((\w+)(?:<\w+>)? (const &|&&)', text)
    if assignment and assignment[1] == assignment[2]:
        return 'Becomes a copy.' if assignment[3] == 'const &' else 'Takes over the content of another.'
    constructor = re.match(r'(~?)([A-Z]\w*)\((?:([\w]+)(?:<\w+>)? (const &|&&)[^,]*?)?\)', text)
    if not constructor:
        return ''
    if constructor[1]:
        return 'Frees what the object holds.'
    if not constructor[3]:
        return 'Makes an empty one.'
    if constructor[3] == constructor[2]:
        return 'Copies.' if constructor[4] == 'const &' else 'Takes over the content of another.'
    return ''


def words_for(line, name, told):
    words = special_member(line) or WORDS.get(name, '')
    if not words and TYPES.search(line):
        words = 'As in the standard library.'
    if not words and name and name == told:
        words = r'\overload'
    if not words and re.search(r'\boverride\b', line):
        words = 'As the base says.'
    if words and re.search(r'= delete;$', line):
        words = 'Not offered.'
    return words


def main():
    with open(sys.argv[1], encoding='utf-8') as header:
        lines = header.read().split('\n')
    indent = 4           # of the members: 8 within a nested class
    in_class = False
    documented = False   # a comment ends right above
    told = ''            # name of the declaration right above, when it has words
    for index, line in enumerate(lines):
        if re.match(r'(class|struct) .*[^;]$', line):
            in_class = True
        elif line.startswith('};'):
            in_class = False
        elif re.match(r'    (class|struct) .*[^;]$', line):
            indent = 8
        elif line.startswith('    };'):
            indent = 4
        at_member = line.startswith(' ' * indent) and line[indent:indent + 1] not in ('', ' ', '}') if in_class \
            else bool(re.match(r'[A-Za-z]', line))
        found = NAME.search(line)
        name = re.sub(r'\s', '', found[1]) if found and ' ' not in found[1] else (found[1] if found else '')
        declares = at_member and not NOT_A_DECLARATION.match(line) and (name or TYPES.search(line))
        own = documented or '///<' in line
        if declares:
            words = '' if own else words_for(line, name, told)
            if words:
                start = len(line) - len(line.lstrip())
                lines[index] = f'{line[:start]}/** {words} */ {line[start:]}'
            told = name if own or words else ''
        elif not line.strip():
            told = ''
        if not re.match(r'\s*(template <.*>|\[\[nodiscard\]\])\s*$', line):
            documented = bool(re.search(r'\*/\s*$|^\s*///(?!<)', line))
    sys.stdout.write('\n'.join(lines))


main()
