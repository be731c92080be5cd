#!/usr/bin/env python3
"""Whether other programs take what orvrtf writes.

    acceptance.py ORVRTF FOLDER [--min-recall R] [--keep FOLDER]

Every RTF file below FOLDER (but not below FOLDER/expected) is converted to RTF for other programs and to plain
text. LibreOffice must open each RTF and find the words of the plain text in it; AbiWord, unrtf and pandoc must
open it without an error. Where one of them is not installed, the test is skipped (77).
"""
import argparse
import concurrent.futures
import os
import re
import shutil
import sys
import tempfile
import unicodedata
import xml.etree.ElementTree
from collections import Counter

from wordprocessors import libreoffice, require, run

WORD = re.compile(r'\w+')
# What plain text has and a document only shows: the mark of a note, with author and date in front of a comment, and
# the label of a list item.
MARK = re.compile(r'\[[^\]\s]{1,8}\]( [^:\n]*\d{4}-\d\d-\d\d:)?')
LABEL = re.compile(r'^(\(?\w{1,8}([.)]\w{1,3})*[.)]|\d+(\.\d+)+) ', re.MULTILINE)


def words(text):
    text = unicodedata.normalize('NFC', text.replace('\u00ad', ''))
    return Counter(WORD.findall(text))


def inputs(folder):
    for path, folders, names in os.walk(folder):
        folders[:] = sorted(name for name in folders if name != 'expected')
        for name in sorted(names):
            if name.lower().endswith('.rtf'):
                yield os.path.join(path, name)


def convert(tool, source, target):
    """Damaged files are converted as far as they go, with exit status 1."""
    status, output = run([tool, 'convert', source, target])
    return '' if status in (0, 1) and os.path.exists(target) else 'orvrtf: %s %s' % (status, output)


def document_text(path):
    """All text of a flat ODT file, notes and headers included, with a blank between paragraphs and fields."""
    parts = []
    for element in xml.etree.ElementTree.parse(path).getroot().iter():
        name = element.tag.rsplit('}', 1)[-1]
        if name in ('p', 'h', 'tab', 's', 'line-break', 'note', 'annotation'):
            parts.append(' ')
        if name not in ('binary-data', 'script'):
            parts.append(element.text or '')
        parts.append(('' if name in ('span', 'a') else ' ') + (element.tail or '') if name != 'p' else ' ')
    return ''.join(parts)


def plain_words(text):
    """The words of plain text of orvrtf that are text of the document."""
    return words(LABEL.sub('', MARK.sub('', text)))


def recall(expected, found):
    """Share of the expected words that are found. A word may also be found as two, as where a mark is in it."""
    total = sum(expected.values())
    missing = expected - found
    rest = found - expected
    for word in list(missing.elements()):
        for i in range(1, len(word)):
            parts = Counter((word[:i], word[i:]))
            if parts <= rest:
                rest -= parts
                missing[word] -= 1
                break
    return 1 - sum(missing.values()) / total if total else 1.0


def aborts_abiword(path):
    """AbiWord 3.0.5 frees memory twice for a cell merged with its left neighbour in a nested table, and fails with
    the author of a comment at the start of a paragraph, also in files of LibreOffice."""
    with open(path, 'rb') as file:
        return re.search(rb'\\nesttableprops[^{}]*\\clmrg|\\atnauthor', file.read())


def check_others(path):
    """The programs that do not open the file, with what they say."""
    failures = []
    for name, command in (('unrtf', ['unrtf', '--nopict', '--text', path]),
                          ('pandoc', ['pandoc', '-f', 'rtf', '-t', 'plain', '-o', os.devnull, path]),
                          ('abiword', ['abiword', '--to=txt', '-o', path + '.abi.txt', path])):
        if name == 'abiword' and aborts_abiword(path):
            continue
        status, output = run(command)
        if status != 0 or (name == 'abiword' and not os.path.exists(path + '.abi.txt')):
            failures.append('%s: %s %s' % (name, status, output.strip()[-200:]))
    return failures


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument('tool')
    arguments.add_argument('folder')
    arguments.add_argument('--min-recall', type=float, default=0.99, help='least recall of words in LibreOffice')
    arguments.add_argument('--keep', help='keep what is written in this folder')
    options = arguments.parse_args()
    require('acceptance.py', ('soffice', 'abiword', 'unrtf', 'pandoc'))

    work = options.keep or tempfile.mkdtemp()
    os.makedirs(work, exist_ok=True)
    failures, low, written = [], [], []
    for number, source in enumerate(inputs(options.folder)):
        target = os.path.join(work, '%04d.rtf' % number)
        failure = convert(options.tool, source, target) or convert(options.tool, source, target[:-4] + '.txt')
        if failure:
            failures.append('%s: %s' % (source, failure))
        else:
            written.append((source, target))

    if written:
        libreoffice(os.path.join(work, 'profile'), work, [target for _, target in written], 'fodt')
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for (source, target), others in zip(written, pool.map(check_others, [target for _, target in written])):
            failures += ['%s: %s' % (source, other) for other in others]
            opened = target[:-4] + '.fodt'
            if not os.path.exists(opened):
                failures.append('%s: LibreOffice does not open it' % source)
                continue
            with open(target[:-4] + '.txt', encoding='utf-8') as file:
                value = recall(plain_words(file.read()), words(document_text(opened)))
            if value < options.min_recall:
                low.append((value, source))

    for value, source in sorted(low):
        print('recall %.4f  %s' % (value, source))
    for failure in failures:
        print(failure)
    print('files %d, recall in LibreOffice below %.2f: %d, failures: %d'
          % (len(written), options.min_recall, len(low), len(failures)))
    if not options.keep:
        shutil.rmtree(work)
    sys.exit(1 if failures or low or not written else 0)


if __name__ == '__main__':
    main()
