#!/usr/bin/python3
# SPDX-License-Identifier: BSD-3-Clause
"""Prints what expat sees in XML files, for comparison with our stream reader.

A line "F path" a file, then "S name", "A name=value" an attribute, "T text", "E name"; tabs, line ends and backslashes are
escaped. A file that is not well-formed ends with "X". Told differences of our reader are made here: prefixes are dropped,
so are declarations of namespaces, attributes whose names differ in case only become one with the later value at the
earlier place, and neighbouring pieces of text are joined.
"""
import sys
from xml.parsers import expat


def escaped(text):
    return text.replace('\\', '\\\\').replace('\n', '\\n').replace('\r', '\\r').replace('\t', '\\t')


def local(name):
    return name.rpartition(':')[2]


class Events:
    def __init__(self, out):
        self.out = out
        self.text = []

    def flush(self):
        if self.text:
            self.out.append('T ' + escaped(''.join(self.text)))
            self.text = []

    def start(self, name, attributes):
        self.flush()
        self.out.append('S ' + local(name))
        kept = {}
        for key, value in zip(attributes[::2], attributes[1::2]):
            if key == 'xmlns' or key.startswith('xmlns:'):
                continue
            first = kept.setdefault(local(key).lower(), [local(key), value])
            first[1] = value
        self.out.extend(f'A {key}={escaped(value)}' for key, value in kept.values())

    def end(self, name):
        self.flush()
        self.out.append('E ' + local(name))


def events(path):
    out = ['F ' + path]
    handler = Events(out)
    parser = expat.ParserCreate()
    parser.ordered_attributes = True
    parser.StartElementHandler = handler.start
    parser.EndElementHandler = handler.end
    # The handler's list is replaced when it is flushed.
    parser.CharacterDataHandler = lambda text: handler.text.append(text)
    try:
        with open(path, 'rb') as file:
            parser.ParseFile(file)
    except expat.ExpatError:
        out.append('X')
    return out


for argument in sys.argv[1:]:
    print('\n'.join(events(argument)))
