#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Checks that ZyCore.h includes every public header and ZyCoreFwd.h declares every public class.

Both files follow from the other headers; with --write they are written anew.
"""
import argparse
import sys

import zyheaders

CORE = '''// SPDX-License-Identifier: BSD-3-Clause
// Everything at once. tools/check_umbrella.py --write makes this file from the other headers.
#pragma once

{includes}
'''

FORWARD = '''// SPDX-License-Identifier: BSD-3-Clause
// Every class, declared ahead. tools/check_umbrella.py --write makes this file from the other headers.
#pragma once

{declarations}

{aliases}
'''


def expected(root):
    includes = [f'#include <{path.name}>' for path in zyheaders.headers(root)] + ['#include <ZyCoreFwd.h>']
    ahead = sorted(zyheaders.all_classes(root), key=lambda item: (bool(item.template), item.name))
    same = [f'using {name} = {meaning};' for name, meaning in sorted(zyheaders.aliases(root))]
    return {
        'ZyCore.h': CORE.format(includes='\n'.join(sorted(includes))),
        'ZyCoreFwd.h': FORWARD.format(declarations='\n'.join(item.forward() for item in ahead),
                                      aliases='\n'.join(same)),
    }


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument('root', nargs='?')
    parser.add_argument('--write', action='store_true', help='write both headers anew')
    options = parser.parse_args()
    root = zyheaders.root_of(options.root)
    stale = []
    for name, text in expected(root).items():
        path = root / 'include' / name
        if options.write:
            path.write_text(text)
        elif not path.is_file() or path.read_text() != text:
            stale.append(name)
    for name in stale:
        print(f'include/{name} does not match the other headers; run tools/check_umbrella.py --write')
    return 1 if stale else 0


if __name__ == '__main__':
    sys.exit(main())
