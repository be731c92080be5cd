#!/usr/bin/env python3
"""Prints one table from the JSON results of the benchmark programs: table.py RESULT.json…

A case compares the median time of one benchmark with that of another from the same run; with "per", the times
are divided by the sizes the benchmarks ran with first.
"""
import json
import sys

# case, ours, compared with (another benchmark or a figure), goal: the ratio to stay below
CASES = [
    ('read prose', 'read prose/ours', 'read prose/floor', 1.5),
    ('read prose against setHtml', 'read prose/ours', 'read prose/setHtml', 1 / 6),
    ('read novel of LibreOffice', 'read novel/ours', 'read novel/floor', 3),
    ('read picture', 'read picture/ours', 'read picture/floor', 1.3),
    ('read groups, one of 1,000,000', 'read groups/1000000', 'read groups/100000', 1.2),
    ('read table, a row of 10,000', 'read table/rows/10000', 'read table/rows/1000', 1.5),
    ('read table merged down, a row of 10,000', 'read merged table/rows/10000', 'read merged table/rows/1000', 1.5),
    ('read list of 5,000 items', 'read list/ours', 'read list/floor', 1.2),
    ('import prose', 'import prose/ours', 'import prose/storage', 1.1),
    ('import novel of LibreOffice', 'import novel/ours', 'import novel/storage', 1.3),
    ('import table of 10,000 rows', 'import table/ours', 'import table/storage', 1.2),
    ('import Cyrillic', 'import Cyrillic/ours', 'import Cyrillic/floor', 2),
    ('import Japanese', 'import Japanese/ours', 'import Japanese/floor', 5),
    ('strip 100 MB', 'strip/ours', 'strip/floor', 4),
    ('write prose in place', 'write prose in place/ours', 'write prose in place/toHtml', 0.5),
    ('write prose', 'write prose/ours', 'write prose/clone and toHtml', 0.8),
    ('write prose as HTML', 'write prose as HTML/ours', 'write prose as HTML/toHtml', 0.5),
    ('write picture', 'write picture/ours', 'write picture/floor', 1.3),
    ('write list, an item of 20,000', 'write list/items/20000', 'write list/items/1000', 1.5),
    ('write table, a row of 10,000', 'write table/rows/10000', 'write table/rows/1000', 1.5),
    ('convert to text, other programs', 'convert to text/orvrtf', 'convert to text/fastest other', 1 / 1.5),
    ('start of the tool', 'start/ours', 'start/floor', 2),
    ('memory of reading 50 MB', 'memory of reading/ours', 'memory of reading/floor', 1.2),
    ('memory of writing in place, of 4 MB', 'memory of writing/ours', 4, 1),
]


def medians(paths):
    times = {}
    for path in paths:
        with open(path, encoding='utf-8') as file:
            for run in json.load(file)['benchmarks']:
                if run.get('aggregate_name') == 'median':
                    times[run['run_name']] = run['cpu_time']
    return times


def size(name):
    """The size a benchmark ran with: the number at the end of its name."""
    last = name.rsplit('/', 1)[-1]
    return int(last) if last.isdigit() else 1


def main():
    times = medians(sys.argv[1:])
    print('%-42s %12s %12s %8s %8s' % ('case', 'ours', 'compared', 'ratio', 'goal'))
    for case, ours, other, goal in CASES:
        if ours not in times or (isinstance(other, str) and other not in times):
            continue
        mine = times[ours] / size(ours)
        theirs = times[other] / size(other) if isinstance(other, str) else other
        unit = 'MB' if case.startswith('memory') else 'ms'
        ratio = mine / theirs
        print('%-42s %9.3f %s %9.3f %s %8.2f %8.2f  %s'
              % (case, mine, unit, theirs, unit, ratio, goal, 'met' if ratio <= goal else 'not met'))


if __name__ == '__main__':
    main()
