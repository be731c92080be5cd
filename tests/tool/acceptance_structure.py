#!/usr/bin/env python3
"""Whether other programs show the tables and lists that orvrtf writes.

    acceptance_structure.py ORVRTF FOLDER [--keep FOLDER]

Documents with tables and lists, some of them samples in FOLDER, are converted to RTF for other programs.
LibreOffice must show the same tables, with the same cells at the same places, and LibreOffice and AbiWord the
numbers and bullets that are stated here.
"""
import argparse
import collections
import concurrent.futures
import os
import shutil
import sys
import tempfile

import htmltables
from wordprocessors import libreoffice, require, run

# A document, as the content of a file with the suffix or as a sample of that name.
Source = collections.namedtuple('Source', 'suffix content')
# The text of a document in which a part changes when it is written.
Changed = collections.namedtuple('Changed', 'old new')


def html(content):
    return Source('.html', '<html><body>%s</body></html>' % content)


def rtf(content):
    return Source('.rtf', '{\\rtf1\\ansi{\\fonttbl{\\f0 Liberation Serif;}}'
                          '{\\colortbl;\\red255\\green0\\blue0;}\\pard\\plain ' + content + '}')


def sample(name):
    return Source('sample', name)


def row(boundaries, cells):
    return ('\\trowd' + ''.join('\\cellx%d' % boundary for boundary in boundaries) + '\\pard\\intbl '
            + ''.join(cell + '\\cell ' for cell in cells) + '\\row\n')


def framed(border):
    """A table of one cell whose sides all have this border."""
    sides = ''.join('\\clbrdr%s%s' % (side, border) for side in 'tlbr')
    return '\\trowd\\trgaph0' + sides + '\\cellx2000\\pard\\intbl a\\cell\\row\\pard after'


# Name, source, and text and tables of the document.
TABLES = (
    ('plain grid', html('<p>before</p><table><tr><td>a</td><td>b</td></tr><tr><td>c</td><td>d</td></tr></table>'
                        '<p>after</p>'),
     'before {a, b / c, d} after'),
    ('one cell', html('<p>before</p><table><tr><td>a</td></tr></table><p>after</p>'), 'before {a} after'),
    ('empty cells', html('<p>before</p><table><tr><td></td><td>b</td></tr><tr><td>c</td><td></td></tr></table>'
                         '<p>after</p>'),
     'before {-, b / c, -} after'),
    ('paragraphs in a cell', html('<p>before</p><table><tr><td><p>a</p><p>b</p></td><td>c</td></tr></table>'
                                  '<p>after</p>'),
     'before {a b, c} after'),
    ('cells merged across', html('<p>before</p><table><tr><td colspan="2">a</td><td>b</td></tr><tr><td>c</td>'
                                 '<td>d</td><td>e</td></tr><tr><td>f</td><td colspan="2">g</td></tr></table>'
                                 '<p>after</p>'),
     'before {a(c2), b / c, d, e / f, g(c2)} after'),
    ('cells merged down', html('<p>before</p><table><tr><td rowspan="2">a</td><td>b</td></tr><tr><td>c</td></tr>'
                               '<tr><td>d</td><td rowspan="3">e</td></tr><tr><td>f</td></tr><tr><td>g</td></tr>'
                               '</table><p>after</p>'),
     'before {a(r2), b / c / d, e(r3) / f / g} after'),
    ('cells merged both ways', html('<p>before</p><table><tr><td>a</td><td rowspan="2" colspan="2">b</td></tr>'
                                    '<tr><td>c</td></tr><tr><td>d</td><td>e</td><td>f</td></tr></table>'
                                    '<p>after</p>'),
     'before {a, b(r2c2) / c / d, e, f} after'),
    ('block of four in the corner', html('<p>before</p><table><tr><td rowspan="2" colspan="2">a</td><td>b</td>'
                                         '</tr><tr><td>c</td></tr><tr><td>d</td><td>e</td><td>f</td></tr></table>'
                                         '<p>after</p>'),
     'before {a(r2c2), b / c / d, e, f} after'),
    ('rows of different widths', rtf('before\\par ' + row((4320, 8640), 'ab') + row((2160, 8640), 'cd')
                                     + row((2160, 4320, 8640), 'efg') + '\\pard after'),
     'before {a(c2), b / c, d(c2) / e, f, g} after'),
    ('table in a cell', html('<p>before</p><table><tr><td>a</td><td>b<table><tr><td>c</td><td>d</td></tr><tr>'
                             '<td colspan="2">e</td></tr></table>f</td></tr><tr><td>g</td><td>h</td></tr></table>'
                             '<p>after</p>'),
     'before {a, b {c, d / e(c2)} f / g, h} after'),
    ('table in a table in a cell', html('<p>before</p><table><tr><td>a<table><tr><td>b<table><tr><td>c</td></tr>'
                                        '</table>d</td></tr></table>e</td></tr></table><p>after</p>'),
     'before {a {b {c} d} e} after'),
    ('first in the document', html('<table><tr><td>a</td><td>b</td></tr></table><p>after</p>'), '{a, b} after'),
    ('last in the document', html('<p>before</p><table><tr><td>a</td><td>b</td></tr></table>'), 'before {a, b}'),
    ('nothing but a table', html('<table><tr><td>a</td><td>b</td></tr></table>'), '{a, b}'),
    ('two tables with text between', html('<table><tr><td>a</td></tr></table><p>between</p>'
                                          '<table><tr><td>b</td><td>c</td></tr></table><p>after</p>'),
     '{a} between {b, c} after'),
    # The empty paragraph between them is that behind each table and is not written. In RTF, rows that follow each
    # other are one table to other programs.
    ('two tables in sequence', html('<table><tr><td>a</td><td>b</td></tr></table>'
                                    '<table><tr><td>c</td><td>d</td></tr></table><p>after</p>'),
     '{a, b / c, d} after'),
    ('grids of LibreOffice', sample('libreoffice-grids'),
     'Merged cells. {apple, bridge(c2) / candle(r2), dapple, ember / falcon, garden(r2) / hollow(c2)} '
     'Different widths. {island, jacket(c2) / kettle(c2), lantern} The end.'),
    ('grids of AbiWord', sample('abiword-grids'),
     'Merged cells. {apple, bridge(c2) / candle(r2), dapple, ember / falcon, garden(r2) / hollow(c2)} '
     'Different widths. {island, jacket(c2) / kettle(c2), lantern} The end.'),
    ('table in a cell of LibreOffice', sample('libreoffice-nested'),
     'A table within a cell. {marble, before {inner one, inner two / inner wide(c2)} after / needle, -} The end.'),
    # As it is read, but for two tables: the paragraph between them is empty and not written.
    ('tables of pandoc', sample('pandoc-tables'),
     Changed('{narrow, wide his careful envelope hesitated twice, mid / -, -, - / x, y, z} '
             '{directly adjacent table, no paragraph between?}',
             '{narrow, wide his careful envelope hesitated twice(c2), mid / -, -(c2), - / x, y(c2), z / '
             'directly adjacent table(c2), no paragraph between?(c2)}')),
    ('borders', rtf(framed('\\brdrs\\brdrw40\\brdrcf1')), '{a} after'),
    ('no borders', rtf(framed('\\brdrnil')), '{a} after'),
    ('column widths', rtf(row((1728, 4320, 8640), 'abc') + '\\pard after'), '{a, b, c} after'),
)

# What the style of each cell says in LibreOffice.
BORDERS = {'borders': 'border: 2.00pt solid #ff0000', 'no borders': 'border: none'}
# Shares of the columns in the width of the table, in percent.
WIDTHS = {'column widths': (20, 30, 50)}

OUTLINE = ('Numbers.', '1. barley', '1.1 copper', 'a) linen', 'b) pepper', '1.2 velvet', '2. harbour',
           'Letters and roman numbers.', 'I. meadow', 'A. orchard', '(i) pebble', 'B. quarry', 'II. river',
           'Bullets.', '\u2022 saddle', '\u2013 timber', '\u2013 willow', '\u2022 anchor', 'The end.')
# AbiWord has one bullet, and shows nothing before a number. It shows the sample itself like that, too.
OUTLINE_IN_ABIWORD = tuple(line.replace('\u2013', '\u2022').replace('(i)', 'i)') for line in OUTLINE)

ONE_LIST = '{\\*\\listtable{\\list\\listtemplateid7{\\listlevel\\levelnfc0{\\leveltext\\\'02\\\'00.;}' \
           '{\\levelnumbers\\\'01;}\\fi-360\\li720}\\listid7}}'
OVERRIDES = ('{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}{\\listoverride\\listid7\\ls2'
             '{\\lfolevel\\listoverridestartat\\levelstartat1}}}')


def item(number, text):
    return '\\pard\\ls%d\\ilvl0\\fi-360\\li720 %s\\par ' % (number, text)


# Name, source, and the lines that LibreOffice and AbiWord show.
LISTS = (
    ('outline', sample('libreoffice-outline'), OUTLINE, OUTLINE_IN_ABIWORD),
    ('numbers', html('<ol><li>a</li><li>b</li><li>c</li></ol><p>end</p>'), ('1. a', '2. b', '3. c', 'end'), None),
    ('small letters', html('<ol type="a"><li>a</li><li>b</li></ol><p>end</p>'), ('a. a', 'b. b', 'end'), None),
    ('capital letters', html('<ol type="A"><li>a</li><li>b</li></ol><p>end</p>'), ('A. a', 'B. b', 'end'), None),
    ('small roman numbers', html('<ol type="i"><li>a</li><li>b</li><li>c</li><li>d</li></ol><p>end</p>'),
     ('i. a', 'ii. b', 'iii. c', 'iv. d', 'end'), None),
    ('capital roman numbers', html('<ol type="I"><li>a</li><li>b</li><li>c</li><li>d</li></ol><p>end</p>'),
     ('I. a', 'II. b', 'III. c', 'IV. d', 'end'), None),
    ('bullets', html('<ul><li>a</li><li>b</li></ul><p>end</p>'), ('\u2022 a', '\u2022 b', 'end'), None),
    ('many numbers', html('<ol>' + '<li>a</li>' * 11 + '</ol><p>end</p>'),
     tuple('%d. a' % number for number in range(1, 12)) + ('end',), None),
    ('two lists', html('<ol><li>a</li><li>b</li></ol><p>between</p><ol><li>c</li><li>d</li></ol><p>end</p>'),
     ('1. a', '2. b', 'between', '1. c', '2. d', 'end'), None),
    ('list within a list', html('<ol><li>a</li><li>b<ul><li>c</li></ul></li><li>d</li></ol><p>end</p>'),
     ('1. a', '2. b', '\u2022 c', '3. d', 'end'), None),
    ('list that goes on', rtf(ONE_LIST + OVERRIDES + item(1, 'a') + item(1, 'b') + '\\pard between\\par '
                              + item(1, 'c') + '\\pard end'),
     ('1. a', '2. b', 'between', '3. c', 'end'), None),
    ('list that begins anew', rtf(ONE_LIST + OVERRIDES + item(1, 'a') + item(1, 'b') + '\\pard between\\par '
                                  + item(2, 'c') + '\\pard end'),
     ('1. a', '2. b', 'between', '1. c', 'end'), None),
    ('list in a table', html('<table><tr><td><ol><li>a</li><li>b</li></ol></td></tr></table><p>end</p>'),
     ('1. a', '2. b', 'end'), None),
)


class Work:
    """The folder in which files are converted, and what went wrong there."""

    def __init__(self, tool, samples, folder):
        self.tool = tool
        self.samples = samples
        self.folder = folder
        self.failures = []

    def path(self, name, suffix):
        return os.path.join(self.folder, name.replace(' ', '-') + suffix)

    def convert(self, source, target):
        status, output = run([self.tool, 'convert', source, target])
        if status != 0:
            self.failures.append('%s: orvrtf: %s %s' % (source, status, output))

    def write(self, name, source):
        """Writes the document as RTF for other programs, and gives the paths of the document and the RTF."""
        if source.suffix == 'sample':
            path = os.path.join(self.samples, source.content + '.rtf')
        else:
            path = self.path(name, '.source' + source.suffix)
            with open(path, 'w', encoding='utf-8') as file:
                file.write(source.content)
        target = self.path(name, '.rtf')
        self.convert(path, target)
        return path, target

    def libreoffice(self, files, suffix):
        libreoffice(os.path.join(self.folder, 'profile'), os.path.join(self.folder, 'libreoffice'), files, suffix)

    def opened(self, name, suffix):
        """The path of what LibreOffice made of the RTF."""
        return os.path.join(self.folder, 'libreoffice', os.path.basename(self.path(name, suffix)))

    def expect(self, name, what, found, expected):
        if found != expected:
            self.failures.append('%s, %s:\n    found    %s\n    expected %s' % (name, what, found, expected))


def shares(widths):
    """To the next 5 percent, since widths are cut to whole points and pixels on the way."""
    return tuple(5 * round(20 * width / sum(widths)) for width in widths)


def check_tables(work):
    written = {}
    for name, source, _ in TABLES:
        path, written[name] = work.write(name, source)
        work.convert(path, work.path(name, '.direct.html'))
        work.convert(written[name], work.path(name, '.own.html'))
    work.libreoffice(list(written.values()), 'html')
    for name, _, expected in TABLES:
        # A QTextTable says itself what its cells are, without RTF.
        direct = htmltables.parse_file(work.path(name, '.direct.html')).text
        if isinstance(expected, Changed):
            assert expected.old in direct, direct
            expected = direct.replace(expected.old, expected.new)
        elif name != 'two tables in sequence':
            work.expect(name, 'as it is read', direct, expected)
        work.expect(name, 'read again', htmltables.parse_file(work.path(name, '.own.html')).text, expected)
        if not os.path.exists(work.opened(name, '.html')):
            work.failures.append('%s: LibreOffice does not open it' % name)
            continue
        opened = htmltables.parse_file(work.opened(name, '.html'))
        work.expect(name, 'LibreOffice', opened.text, expected)
        if name in BORDERS:
            styles = {cell.style.partition(';')[0] for table in opened.tables for cell in table.cells()}
            work.expect(name, 'LibreOffice', styles, {BORDERS[name]})
        if name in WIDTHS:
            work.expect(name, 'LibreOffice', shares(opened.tables[0].widths), WIDTHS[name])
    return len(TABLES)


def shown_lines(path):
    """The lines of a PDF file that are not empty."""
    status, output = run(['pdftotext', '-layout', path, '-'])
    if status != 0:
        return ('cannot be read: %s' % output,)
    lines = (' '.join(line.split()) for line in output.splitlines())
    return tuple(line for line in lines if line)


def abiword_lines(path):
    target = path + '.abiword.pdf'
    run(['abiword', '--to=pdf', '-o', target, path])
    return shown_lines(target)


def check_lists(work):
    written = [work.write(name, source)[1] for name, source, _, _ in LISTS]
    work.libreoffice(written, 'pdf')
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for (name, _, expected, in_abiword), lines in zip(LISTS, pool.map(abiword_lines, written)):
            work.expect(name, 'LibreOffice', shown_lines(work.opened(name, '.pdf')), expected)
            work.expect(name, 'AbiWord', lines, in_abiword or expected)
    return len(LISTS)


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument('tool')
    arguments.add_argument('folder')
    arguments.add_argument('--keep', help='keep what is written in this folder')
    options = arguments.parse_args()
    require('acceptance_structure.py', ('soffice', 'abiword', 'pdftotext'))

    folder = options.keep or tempfile.mkdtemp()
    os.makedirs(folder, exist_ok=True)
    work = Work(options.tool, options.folder, folder)
    tables, lists = check_tables(work), check_lists(work)
    for failure in work.failures:
        print(failure)
    print('documents with tables %d, with lists %d, failures: %d' % (tables, lists, len(work.failures)))
    if not options.keep:
        shutil.rmtree(folder)
    sys.exit(1 if work.failures else 0)


if __name__ == '__main__':
    main()
