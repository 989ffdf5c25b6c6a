# SPDX-License-Identifier: BSD-3-Clause
# Prints what a browser has made of a page: its titles and its tables, one line a row. A cell that spans rows or columns
# has them behind it, as in "Results [1x6]".
import sys
from html.parser import HTMLParser


class Page(HTMLParser):
    TEXTS = ('title', 'h1', 'h2')

    def __init__(self):
        super().__init__()
        self.text = None
        self.span = ''
        self.row = []

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if tag in self.TEXTS or tag in ('th', 'td'):
            self.text = ''
            rows, columns = values.get('rowspan', '1'), values.get('colspan', '1')
            self.span = '' if (rows, columns) == ('1', '1') else f' [{rows}x{columns}]'
        elif tag == 'tr':
            self.row = []
        elif tag == 'table':
            print('table', values.get('class'))

    def handle_data(self, data):
        if self.text is not None:
            self.text += data

    def handle_endtag(self, tag):
        if tag in self.TEXTS:
            print(tag, self.text)
            self.text = None
        elif tag in ('th', 'td'):
            self.row.append(self.text + self.span)
            self.text = None
        elif tag == 'tr':
            print('|'.join(self.row))


page = Page()
page.feed(sys.stdin.buffer.read().decode())
