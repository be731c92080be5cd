#!/usr/bin/env python3
"""tidy.py BUILD CACHE: runs clang-tidy on the sources of the library, the tool and the examples, as BUILD compiles
them, and exits with 1 when it finds something. A source that has passed leaves a file in the folder CACHE and is not
checked again, until it, a header that it includes, its options, .clang-tidy or clang-tidy itself change."""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD, CACHE = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
CHECKED = tuple(f"{ROOT / folder}/" for folder in ("examples", "imageformats", "platform", "rtf", "tools", "view"))


def output_of(command, folder=ROOT):
    return subprocess.run(command, cwd=folder, check=True, stdout=subprocess.PIPE).stdout


SETTINGS = (ROOT / ".clang-tidy").read_bytes() + output_of(["clang-tidy", "--version"])


def key_of(entry):
    """The hash of all that clang-tidy looks at."""
    command = shlex.split(entry["command"])
    compiler = next(i for i, word in enumerate(command) if "clang" in os.path.basename(word))
    command = command[compiler:]
    del command[command.index("-o"):][:2]
    rule = output_of([*command, "-M", "-MF", "-"], entry["directory"]).decode()
    key = hashlib.sha256(SETTINGS + " ".join(command).encode())
    for name in rule.replace("\\\n", " ").split()[1:]:
        key.update((pathlib.Path(entry["directory"]) / name).read_bytes())
    return key.hexdigest()


def check(entry):
    stamp = CACHE / key_of(entry)
    if stamp.exists():
        return "known"
    run = subprocess.run(["clang-tidy", "-p", BUILD, "--quiet", entry["file"]], stdout=subprocess.PIPE,
                         stderr=subprocess.STDOUT, check=False)
    if run.returncode == 0:
        stamp.touch()
        return "passed"
    print(run.stdout.decode(), flush=True)
    return "failed"


def main():
    CACHE.mkdir(parents=True, exist_ok=True)
    entries = {entry["file"]: entry for entry in json.loads((BUILD / "compile_commands.json").read_text())
               if entry["file"].startswith(CHECKED)}
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(check, entries.values()))
    print(", ".join(f"{results.count(result)} {result}" for result in ("passed", "known", "failed")))
    return 1 if "failed" in results or not results else 0


sys.exit(main())
