#!/usr/bin/env python3
"""guide.py GUIDE PROGRAMS TOOLS…: does what docs/guide.md asks its readers to do.

The guide has to link each C++ file of the folder PROGRAMS, and no other file there. Each block of shell commands
marked "sh" is run, from top to bottom, in a scratch folder with the folders TOOLS in front of PATH; the text block
after it has to be the output of the commands, errors included. Blocks marked "console" are not run."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"```(\w+)\n(.*?)```\n", re.DOTALL)


def wrong_links(guide, programs):
    folder = os.path.relpath(programs, guide.parent)
    linked = set(re.findall(rf"\({re.escape(folder)}/([^)]+)\)", guide.read_text()))
    existing = {file.name for file in programs.glob("*.cpp")}
    for name in sorted(existing - linked):
        yield f"the guide does not link {name}"
    for name in sorted(linked - existing):
        yield f"the guide links {name}, which does not exist"


def wrong_results(guide, environment):
    blocks = BLOCK.findall(guide.read_text())
    with tempfile.TemporaryDirectory() as folder:
        os.mkdir(os.path.join(folder, "build"))
        for (kind, commands), (next_kind, expected) in zip(blocks, blocks[1:] + [("", "")]):
            if kind != "sh":
                continue
            run = subprocess.run(["bash", "-e", "-c", commands], cwd=folder, text=True,
                                 env=dict(environment, XDG_RUNTIME_DIR=folder), stdin=subprocess.DEVNULL,
                                 stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            wanted = expected if next_kind == "text" else ""
            if run.returncode != 0 or run.stdout != wanted:
                yield (f"{commands}\nexit status {run.returncode}, instead of 0, prints\n{run.stdout}\n"
                       f"instead of\n{wanted}")


def main():
    guide, programs = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    # Warnings of Qt itself depend on the system.
    environment = dict(os.environ, PATH=os.pathsep.join(sys.argv[3:] + [os.environ["PATH"]]), LC_ALL="C.UTF-8",
                       QT_LOGGING_RULES="default.warning=false")
    problems = [*wrong_links(guide, programs), *wrong_results(guide, environment)]
    print("\n".join(problems))
    return 1 if problems else 0


sys.exit(main())
