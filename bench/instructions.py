#!/usr/bin/env python3
"""instructions.py PROGRAM COUNTS [--update]: compares instruction counts with those noted in the file COUNTS.

Unlike times they are the same on busy and idle machines. Fails when a case takes over 5 % more than noted;
--update notes the counts of today.
"""
import os
import re
import subprocess
import sys

TOLERANCE = 1.05
CASES = ['read', 'write', 'strip', 'table']


def count(program, case):
    command = ['valgrind', '--tool=callgrind', '--callgrind-out-file=/dev/null', '--toggle-collect=measuredWork',
               program, case]
    environment = dict(os.environ, QT_HASH_SEED='0', QT_QPA_PLATFORM='offscreen')
    errors = subprocess.run(command, check=True, capture_output=True, text=True, env=environment).stderr
    found = re.search(r'Collected : (\d+)', errors)
    if not found:
        raise SystemExit(f'no instruction count for {case}: {errors}')
    return int(found.group(1))


def main():
    program, path = sys.argv[1:3]
    counts = {case: count(program, case) for case in CASES}
    if '--update' in sys.argv:
        with open(path, 'w', encoding='ascii') as file:
            file.writelines(f'{case} {number}\n' for case, number in counts.items())
        return
    with open(path, encoding='ascii') as file:
        noted = {case: int(number) for case, number in (line.split() for line in file)}
    failed = False
    for case, number in counts.items():
        ratio = number / noted[case]
        print(f'{case}: {number} instructions, {ratio:.3f} of the {noted[case]} noted')
        failed = failed or ratio > TOLERANCE
    if failed:
        raise SystemExit('more instructions than noted: mend that, or note the new counts with --update')


if __name__ == '__main__':
    main()
