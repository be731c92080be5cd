#!/usr/bin/env python3
"""tidy.py BUILD CACHE: runs clang-tidy on the sources of the library, the tool and the examples, as BUILD compiles
them, and exits with 1 when it finds something.

clang-tidy spends most of its time on Qt's headers. So sources with the same options are checked as the text of one,
and one by one where something is found in that, names that they share included. A source that has passed leaves a file
in the folder CACHE and is not checked again, until it, a header that it includes, its options, .clang-tidy or
clang-tidy itself change."""

import collections
import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD, CACHE = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
CHECKED = tuple(f"{ROOT / folder}/" for folder in ("examples", "imageformats", "platform", "rtf", "tools", "view"))
SOURCES_AT_ONCE = 8


def run(command):
    return subprocess.run(command, cwd=BUILD, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, text=True)


SETTINGS = (ROOT / ".clang-tidy").read_text() + run(["clang-tidy", "--version"]).stdout


def options_of(command):
    """The options without the compiler, its launcher, the source and what is written."""
    words = shlex.split(command)
    words = words[next(i for i, word in enumerate(words) if word.startswith("-")):]
    for option in ("-o", "-c"):
        position = words.index(option)
        del words[position:position + 2]
    return tuple(words)


def key_of(source, options):
    """The hash of all that clang-tidy looks at."""
    rule = run(["clang++", *options, "-M", source])
    if rule.returncode != 0:
        raise RuntimeError(rule.stdout)
    key = hashlib.sha256((SETTINGS + " ".join(options)).encode())
    for name in rule.stdout.replace("\\\n", " ").split()[1:]:
        key.update((BUILD / name).read_bytes())
    return key.hexdigest()


def tidy(source, options):
    return run(["clang-tidy", f"--config-file={ROOT / '.clang-tidy'}", "--quiet", source, "--", *options])


def passes_as_one(sources, options):
    with tempfile.NamedTemporaryFile("w", suffix=".cpp") as one:
        one.write("\n".join(pathlib.Path(source).read_text() for source in sources))
        one.flush()
        folders = sorted({f"-iquote{os.path.dirname(source)}" for source in sources})
        return tidy(one.name, [*options, *folders]).returncode == 0


def failures(sources, options):
    """The number of the sources in which clang-tidy finds something, which it prints."""
    stamps = {source: CACHE / key_of(source, options) for source in sources}
    unknown = [source for source in sources if not stamps[source].exists()]
    failed = 0
    as_one = len(unknown) > 1 and passes_as_one(unknown, options)
    for source in unknown:
        alone = None if as_one else tidy(source, options)
        if as_one or alone.returncode == 0:
            stamps[source].touch()
        else:
            failed += 1
            print(alone.stdout, flush=True)
    return failed


def main():
    CACHE.mkdir(parents=True, exist_ok=True)
    sources_by_options = collections.defaultdict(list)
    commands = {entry["file"]: entry["command"] for entry in json.loads((BUILD / "compile_commands.json").read_text())}
    for source, command in sorted(commands.items()):
        if source.startswith(CHECKED):
            sources_by_options[options_of(command)].append(source)
    batches = [(sources[i:i + SOURCES_AT_ONCE], options) for options, sources in sources_by_options.items()
               for i in range(0, len(sources), SOURCES_AT_ONCE)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        failed = sum(pool.map(lambda batch: failures(*batch), batches))
    print(f"{sum(len(sources) for sources, _ in batches)} sources, {failed} failed")
    return 1 if failed or not batches else 0


sys.exit(main())
