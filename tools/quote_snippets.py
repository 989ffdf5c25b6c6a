#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Compares the programs and outputs quoted in the README and the guides with the files in docs/snippets.

In a document, a line `<!-- snippet: name.cpp -->` or `<!-- output: name.txt -->` stands before a fenced block; the block
must equal the file, without the comment at the head of a source. With --write the blocks are brought up to date.
"""
import re
import sys
from pathlib import Path

TOP = Path(__file__).resolve().parent.parent
SNIPPETS = TOP / 'docs' / 'snippets'
QUOTE = re.compile(r'(<!-- (?:snippet|output): (\S+) -->\n```[a-z]*\n)(.*?)(```\n)', re.DOTALL)


def content(name):
    text = (SNIPPETS / name).read_text(encoding='utf-8')
    return re.sub(r'\A(//.*\n)+\n?', '', text) if name.endswith('.cpp') else text


def main():
    write = sys.argv[1:] == ['--write']
    quoted, wrong = set(), []
    for document in [TOP / 'README.md', *sorted((TOP / 'docs').glob('*.md'))]:
        old = document.read_text(encoding='utf-8')
        names = [match[1] for match in QUOTE.findall(old)]
        quoted.update(names)
        if len(names) != len(re.findall(r'<!-- (?:snippet|output):', old)):
            wrong.append(f'{document.name}: a quote without a fenced block behind it')
        new = QUOTE.sub(lambda match: match[1] + content(match[2]) + match[4], old)
        if new != old:
            if write:
                document.write_text(new, encoding='utf-8')
            else:
                wrong.append(f'{document.name}: differs from docs/snippets; run tools/quote_snippets.py --write')
    for source in sorted(SNIPPETS.glob('*.cpp')):
        if source.name not in quoted:
            wrong.append(f'{source.name}: quoted in no document')
    print('\n'.join(wrong) or f'{len(quoted)} quotes are as their files')
    return 1 if wrong else 0


sys.exit(main())
