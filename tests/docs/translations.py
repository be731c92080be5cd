#!/usr/bin/env python3
"""translations.py FILE.ts… -- LUPDATE…: fails unless the files have all messages of the source, no others, and all of
them translated. LUPDATE is the command that looks for the messages."""
import collections
import os
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree


def updated(path, lupdate, folder):
    """The root of the file, brought up to date in a copy."""
    copy = os.path.join(folder, os.path.basename(path))
    shutil.copyfile(path, copy)
    subprocess.run([*lupdate, '-ts', copy], check=True)
    return xml.etree.ElementTree.parse(copy).getroot()


def placeholders(text):
    return collections.Counter(re.findall('%L?[0-9n]+', text or ''))


def problem(message):
    """What is wrong with the message; None if nothing is."""
    translation = message.find('translation')
    kind = translation.get('type')
    if kind:
        return 'has no translation' if kind == 'unfinished' else 'is no longer in the source'
    if placeholders(message.findtext('source')) != placeholders(translation.text):
        return 'has other placeholders than its translation'
    return None


def problems(root):
    for context in root.iter('context'):
        for message in context.iter('message'):
            what = problem(message)
            if what:
                yield f'{context.findtext("name")}: "{message.findtext("source")}" {what}'


def main():
    separator = sys.argv.index('--')
    found = []
    with tempfile.TemporaryDirectory() as folder:
        for path in sys.argv[1:separator]:
            root = updated(path, sys.argv[separator + 1:], folder)
            found += [f'{os.path.basename(path)}: {text}' for text in problems(root)]
    print('\n'.join(found) or 'all messages are translated')
    return 1 if found else 0


if __name__ == '__main__':
    sys.exit(main())
