#!/usr/bin/env python3
"""processes.py BIN_FOLDER RESULT.json: measures whole processes, and writes what Google Benchmark would.

The memory that reading and writing 50 MB of prose take, the tool beside other programs that turn RTF into
text, and the start of the tool. Times are of the processor, so that other work on the machine counts little.
"""
import json
import os
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile

REPETITIONS = 5
# A start takes milliseconds, so that a few of them would not tell much.
STARTS = 51
# Programs that need longer are run once.
PATIENCE_S = 10


def processor_time(command):
    """Seconds that the command and its children compute."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def median_time(command):
    times = [processor_time(command)]
    while len(times) < REPETITIONS and times[0] < PATIENCE_S:
        times.append(processor_time(command))
    return 1000 * statistics.median(times)


def start_times(*commands):
    """Median times; the commands take turns, so that whatever else the machine does meets all of them."""
    rounds = [[processor_time(command) for command in commands] for _ in range(STARTS)]
    return [1000 * statistics.median(times) for times in zip(*rounds)]


def memory(program, what, path):
    """Megabytes."""
    output = subprocess.run([program, what, path], check=True, capture_output=True, text=True).stdout
    return int(output) / 1024


def converters(tool, rtf, folder):
    """Name and command line of what turns the file into text; other programs only where they are installed."""
    text = os.path.join(folder, 'out.txt')
    profile = 'file://' + os.path.join(folder, 'profile')
    commands = {
        'orvrtf': [tool, 'convert', rtf, text],
        'unrtf': ['unrtf', '--text', '--nopict', rtf],
        'pandoc': ['pandoc', '-f', 'rtf', '-t', 'plain', '-o', text, rtf],
        'AbiWord': ['abiword', '--to=txt', '-o', text, rtf],
        'LibreOffice': ['soffice', '-env:UserInstallation=' + profile, '--headless', '--convert-to', 'txt:Text',
                        '--outdir', folder, rtf],
    }
    return {name: command for name, command in commands.items() if shutil.which(command[0])}


def main():
    folder, result = sys.argv[1:]
    tool = os.path.join(folder, 'orvrtf')
    runs = []

    def add(name, value):
        print(f'{name}: {value:.1f}', flush=True)
        runs.append({'run_name': name, 'aggregate_name': 'median', 'cpu_time': value})

    with tempfile.TemporaryDirectory() as temporary:
        rtf = os.path.join(temporary, 'large.rtf')
        bench = os.path.join(folder, 'bench_memory')
        memory(bench, 'make', rtf)
        add('memory of reading/floor', memory(bench, 'build', rtf))
        add('memory of reading/ours', memory(bench, 'read', rtf))
        add('memory of writing/ours', memory(bench, 'write', rtf))

        prose = os.path.join(temporary, 'prose.rtf')
        memory(bench, 'make-prose', prose)
        times = {}
        for name, command in converters(tool, prose, temporary).items():
            times[name] = median_time(command)
            add('convert to text/' + name, times[name])
        others = [time for name, time in times.items() if name != 'orvrtf']
        if others:
            add('convert to text/fastest other', min(others))

        ours, floor = start_times([tool, '--version'], [os.path.join(folder, 'bench_version')])
        add('start/ours', ours)
        add('start/floor', floor)

    with open(result, 'w', encoding='utf-8') as file:
        json.dump({'benchmarks': runs}, file)


if __name__ == '__main__':
    main()
