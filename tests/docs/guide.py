#!/usr/bin/env python3
"""guide.py GUIDE PROGRAMS TOOLS…: does what docs/guide.md tells its readers to do.

Each C++ block is to be the file of the folder PROGRAMS that its first line names ("// page.cpp"). Each block of
shell commands marked "sh" is run, from top to bottom, in a scratch folder with the folders TOOLS in front of PATH;
the text block behind it is to be what they print, errors included. Blocks marked "console" are not run.

guide.py --update GUIDE PROGRAMS puts the files into the blocks."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"```(\w+)\n(.*?)```\n", re.DOTALL)
NAME = re.compile(r"// (\w+\.cpp)\n\n?")


def source(programs, content):
    """The block that stands for the file that the first line of a C++ block names."""
    name = NAME.match(content)[1]
    return f"// {name}\n\n{(programs / name).read_text()}"


def update(guide, programs):
    text = guide.read_text()
    guide.write_text(BLOCK.sub(
        lambda block: f"```cpp\n{source(programs, block[2])}```\n" if block[1] == "cpp" else block[0], text))


def stale_blocks(blocks, programs):
    shown = set()
    for kind, content in blocks:
        if kind == "cpp":
            shown.add(NAME.match(content)[1])
            if content != source(programs, content):
                yield f"{NAME.match(content)[1]} differs from the guide, see guide.py --update"
    for file in programs.glob("*.cpp"):
        if file.name not in shown:
            yield f"{file.name} is not in the guide"


def wrong_results(blocks, environment):
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
    if sys.argv[1] == "--update":
        return update(pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3]))
    guide, programs = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    # What Qt itself says is nothing of the guide's.
    environment = dict(os.environ, PATH=os.pathsep.join(sys.argv[3:] + [os.environ["PATH"]]), LC_ALL="C.UTF-8",
                       QT_LOGGING_RULES="default.warning=false")
    blocks = BLOCK.findall(guide.read_text())
    problems = [*stale_blocks(blocks, programs), *wrong_results(blocks, environment)]
    print("\n".join(problems))
    return 1 if problems else 0


sys.exit(main())
