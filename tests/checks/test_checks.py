#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Shows of every check in tools/ that it passes a sound little project and finds what is planted there.

usage: test_checks.py ROOT COMPILER
"""
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOLS = Path(sys.argv[1]) / 'tools'
COMPILER = sys.argv[2]

SOUND = {
    'include/ZyThing.h': '#pragma once\n\n/** A thing. */\nclass ZyThing\n{\npublic:\n    int size();\n};\n',
    'include/ZyOther.h': '#pragma once\n#include <ZyThing.h>\n\n/** Another. \\deliberate{odd-size} Hosts count it. */\n'
                         'template <class T, class U = int>\nstruct ZyOther\n{\n    T t;\n    U u;\n};\n'
                         '\n/** A box. */\ntemplate <class T>\nstruct ZyBox\n{\n    T t;\n};\nusing ZyBoxInt = ZyBox<int>;\n',
    'src/Core/ZyThing.cpp': '#include <ZyThing.h>\nint ZyThing::size() { return 1; }\n',
    'tests/Core/ZyThingTest.cpp': 'TEST(ZyOther, Deliberate_odd_size_is_kept)\nZyBox<int>\n',
    'tools/layers.txt': '0 ZyThing  # a comment\n1 ZyOther\n2 ZyCore\n0 ZyCoreFwd\n',
}


class Checks(unittest.TestCase):
    def setUp(self):
        self.place = tempfile.TemporaryDirectory()
        self.root = Path(self.place.name)
        for name, text in SOUND.items():
            self.write(name, text)
        self.run_check('check_umbrella', '--write')
        self.run_check('check_deliberate', '--write')

    def tearDown(self):
        self.place.cleanup()

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def change(self, name, old, new):
        text = (self.root / name).read_text()
        self.assertIn(old, text)
        self.write(name, text.replace(old, new))

    def run_check(self, script, *arguments):
        return subprocess.run([sys.executable, TOOLS / f'{script}.py', self.root, *arguments], text=True,
                              capture_output=True)

    def passes(self, script, *arguments):
        done = self.run_check(script, *arguments)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def finds(self, words, script, *arguments):
        done = self.run_check(script, *arguments)
        self.assertEqual(done.returncode, 1, done.stdout + done.stderr)
        self.assertIn(words, done.stdout)

    def headers(self):
        return 'check_headers', self.root / 'stamps', COMPILER, 'c++17'

    def library(self, code):
        self.write('library.cpp', code)
        subprocess.run([COMPILER, '-shared', '-fPIC', '-fvisibility-inlines-hidden', '-o', self.root / 'library.so',
                        self.root / 'library.cpp'], check=True)
        return 'check_symbols', self.root / 'library.so', 'Zy', 'sp_'

    def test_a_sound_project_passes(self):
        for script in ('layers', 'umbrella', 'deliberate', 'classes', 'wording'):
            with self.subTest(script):
                self.passes(f'check_{script}')
        self.passes(*self.headers())
        self.passes(*self.library('#include <deque>\n'
                                  'struct ZyThing { virtual ~ZyThing(); operator int() const; };\n'
                                  'ZyThing::~ZyThing() {}\nZyThing::operator int() const { return 1; }\n'
                                  'bool operator==(ZyThing const &, int) { return false; }\n'
                                  'std::deque<int> ZyDeque(2, 3);\nvoid sp_Go() { ZyDeque.push_back(1); }\n'))

    def test_layers(self):
        self.write('src/Core/ZyNew_p.h', '')
        self.finds('ZyNew is not listed', 'check_layers')
        (self.root / 'src/Core/ZyNew_p.h').unlink()
        self.change('tools/layers.txt', '2 ZyCore', '2 ZyCore\n3 ZyGone')
        self.finds('there is no ZyGone', 'check_layers')
        self.change('tools/layers.txt', '3 ZyGone', '')
        self.write('src/Core/ZyThing.cpp', '#include "ZyOther.h"\n')
        self.finds('ZyThing (level 0) may not include ZyOther (level 1)', 'check_layers')
        self.change('tools/layers.txt', '1 ZyOther', '0 ZyOther')
        self.finds('may not include', 'check_layers')
        self.write('tools/layers.txt', '0 ZyThing knot\n0 ZyOther knot\n2 ZyCore\n0 ZyCoreFwd\n')
        self.passes('check_layers')
        self.write('tools/layers.txt', '0 ZyThing knot\n1 ZyOther knot\n2 ZyCore\n0 ZyCoreFwd\n')
        self.finds('knot knot spreads', 'check_layers')

    def test_layers_and_the_system(self):
        for line in ('#include <unistd.h>', '#include <Windows.h>', '#ifdef _WIN32', '#if defined(_WIN32)',
                     '#include <sys/stat.h>', '#include <keelbase/KbHost.h>'):
            with self.subTest(line):
                self.write('src/Core/ZyThing.cpp', line + '\n')
                self.finds('src/Core/ZyThing.cpp:1', 'check_layers')
        self.write('src/Core/ZyThing.cpp', '')
        self.write('src/Platform/posix/ZyThing.cpp', '#include <unistd.h>\n')
        self.passes('check_layers')
        for place in ('keelbase/include/keelbase/Kb.h', 'keelbase/tests/KbTest.cpp', 'tests/ZyTest.cpp', 'examples/a/main.cpp'):
            with self.subTest(place):
                self.write(place, '#ifndef _WIN32\n#endif\n')
                self.finds(place + ':1', 'check_layers')
                self.write(place, '')
        for place in ('keelbase/include/keelbase/KbExport.h', 'keelbase/src/Kb.cpp', 'include/ZyExport.h'):
            self.write(place, '#ifdef _WIN32\n#endif\n')
        self.write('tools/layers.txt', (self.root / 'tools/layers.txt').read_text() + '0 ZyExport\n')
        self.passes('check_layers')
        self.write('keelbase/src/Kb.cpp', '#include <QString>\n')
        self.finds('keelbase/src/Kb.cpp:1', 'check_layers')

    def test_umbrella(self):
        self.assertIn('template <class T, class U>\nstruct ZyOther;', (self.root / 'include/ZyCoreFwd.h').read_text())
        self.assertIn('using ZyBoxInt = ZyBox<int>;', (self.root / 'include/ZyCoreFwd.h').read_text())
        self.write('include/ZyNew.h', '#pragma once\n')
        self.finds('include/ZyCore.h does not match', 'check_umbrella')
        (self.root / 'include/ZyNew.h').unlink()
        self.change('include/ZyThing.h', 'class ZyThing\n', 'class ZyThink\n')
        self.finds('include/ZyCoreFwd.h does not match', 'check_umbrella')

    def test_deliberate(self):
        self.change('tests/Core/ZyThingTest.cpp', 'odd_size_is_kept', 'odd_sizes')
        done = self.run_check('check_deliberate')
        self.assertIn('nothing is marked for ZyOther.Deliberate_odd_sizes', done.stdout)
        self.assertIn('no test is named Deliberate_odd_size', done.stdout)
        self.assertEqual(done.returncode, 1)
        self.write('tests/Core/ZyThingTest.cpp', SOUND['tests/Core/ZyThingTest.cpp'])
        self.write('src/Core/ZyThing.cpp', '// \\deliberate{odd-size} again and again\n')
        self.finds('is marked at', 'check_deliberate')
        self.write('src/Core/ZyThing.cpp', '// \\deliberate{Odd_size} is badly spelled\n')
        self.finds('not in kebab case', 'check_deliberate')
        self.write('src/Core/ZyThing.cpp', '// \\deliberate{odd-thing}\n')
        self.finds('"odd-thing" is marked without a reason', 'check_deliberate')

    def test_the_list_of_deliberate_oddities(self):
        listed = (self.root / 'docs/oddities.md').read_text()
        self.assertIn('## Strings, containers, values', listed)
        self.assertIn('| `odd-size` | Hosts count it. | [`ZyOther`](../include/ZyOther.h) | '
                      '[ZyOther](../tests/Core/ZyThingTest.cpp) |', listed)
        self.change('include/ZyOther.h', 'Hosts count it.', 'Hosts ask for it.')
        self.finds('docs/oddities.md does not match', 'check_deliberate')
        self.passes('check_deliberate', '--write')
        self.passes('check_deliberate')
        (self.root / 'docs/oddities.md').unlink()
        self.finds('docs/oddities.md does not match', 'check_deliberate')

    def test_where_a_deliberate_oddity_is_listed(self):
        for name, text in (
            ('A::B::go', 'class A\n{\npublic:\n    struct B\n    {\n        /** @ */\n        void go(int = 1) const;\n    };\n};\n'),
            ('A::Kind::One', 'class A\n{\n    enum Kind : int {\n        /** @ */\n        One = 1\n    };\n};\n'),
            ('A::One', 'enum A {\n    /// @\n    /// And so on.\n    One,\n    Two\n};\n'),
            ('A::One', 'enum A {\n    One = 1, ///< @\n    Two = 2\n};\n'),
            ('A::A', 'class ZYCORE_EXPORT A : public C\n{\n    /** @ */\n    explicit A(int a);\n};\n'),
            ('A::operator==', 'class A\n{\n    int b() { return 1; }\n    /** @ */\n    bool operator==(A const &) const;\n};\n'),
            ('A<int>', '/** @ */\ntemplate <>\nstruct ZYCORE_EXPORT A<int, void>\n{\n};\n'),
            ('A::go', 'namespace\n{\n/**\n * @\n */\nint A::go(int a)\n{\n    return a;\n}\n}\n'),
            ('A::go', 'int A::go()\n{\n    // @\n    if (a) {\n    }\n}\n'),
            ('rows', '/* { */\n/**\n * @\n */\nconstexpr int rows[] = {1};\n'),
        ):
            with self.subTest(name + ' in ' + text):
                self.write('src/Core/ZyThing.cpp', text.replace('@', '\\deliberate{odd-size} This is its reason.'))
                self.write('include/ZyOther.h', '')
                self.passes('check_deliberate', '--write')
                self.assertRegex((self.root / 'docs/oddities.md').read_text(),
                                 r'This is its reason\.[^|]* \| \[`' + re.escape(name) + r'`\]\(\.\./src/Core/ZyThing\.cpp\)')

    def test_classes(self):
        self.change('include/ZyOther.h', '/** Another.', '/* Another.')
        self.finds('ZyOther has no doc comment', 'check_classes')
        self.change('tests/Core/ZyThingTest.cpp', 'ZyOther', 'Other')
        self.finds('no test names ZyOther', 'check_classes')

    def test_headers(self):
        self.passes(*self.headers())
        self.assertIn(', 0 changed', self.run_check(*self.headers()).stdout)
        self.change('include/ZyThing.h', '#pragma once', '')
        self.finds('<ZyThing.h> does not compile alone', *self.headers())
        self.finds('<ZyThing.h> does not compile alone', *self.headers())
        self.write('include/ZyThing.h', '#pragma once\nusing ZyThing = std::string;\n')
        self.finds('<ZyOther.h> does not compile alone', *self.headers())

    def test_symbols(self):
        self.finds('helper', *self.library('int helper() { return 1; }\n'))
        self.finds('free_c', *self.library('extern "C" int free_c() { return 1; }\n'))
        self.finds('Thing::size', *self.library('struct Thing { int size(); };\nint Thing::size() { return 1; }\n'))
        self.finds('hidden state', *self.library('struct ZyThing { struct Private { virtual ~Private(); }; };\n'
                                                 'ZyThing::Private::~Private() {}\n'))

    def test_wording(self):
        self.write('docs/a.md', 'as told in Part 1' + '.2\n')
        self.finds('docs/a.md:1', 'check_wording')
        self.write('docs/a.md', '')
        self.write('docs/part-1' + '-2.md', '')
        self.finds('the name of this file', 'check_wording')


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1])
