#!/usr/bin/env python3
"""Checks that each file includes only files of its own room and of those below; prints the others, and exits with 1.
The top of rtf/ is two rooms: the public headers, which each room of rtf/ includes, and the sources behind them, which
include each room."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# Each room with those right below it; what is below those is allowed as well.
BELOW = {
    "common": [],
    "platform/core": ["common"],
    "platform/gui": ["platform/core"],
    "platform/base": ["platform/gui"],
    "rtf/*.h": ["platform/base"],
    "rtf/words": ["rtf/*.h"],
    "rtf/bytes": ["rtf/words"],
    "rtf/reader/tables": ["rtf/bytes"],
    "rtf/reader": ["rtf/reader/tables"],
    "rtf/stripper": ["rtf/reader"],
    "rtf/writer": ["rtf/bytes"],
    "rtf/interchange": ["rtf/reader", "rtf/writer"],
    "rtf/*.cpp": ["rtf/stripper", "rtf/interchange"],
    "view": ["rtf/*.cpp"],
    **dict.fromkeys(["examples", "imageformats", "tools"], ["view"]),
}


def room_of(path):
    folder = path.parent.relative_to(ROOT)
    if folder.as_posix() == "rtf":
        return "rtf/*.cpp" if path.suffix == ".cpp" else "rtf/*.h"
    return next((room.as_posix() for room in [folder, *folder.parents] if room.as_posix() in BELOW), None)


def allowed_in(room):
    return {room}.union(*(allowed_in(below) for below in BELOW[room]))


def main():
    files = [path for folder in {room.split("/")[0] for room in BELOW} for path in (ROOT / folder).rglob("*.*")]
    # Names of headers are unique but for those of programs, which are in the folder of what includes them.
    headers = {path.name.removesuffix(".in"): path for path in files}
    wrong = []
    for path in sorted(file for file in files if file.suffix in (".cpp", ".h")):
        room = room_of(path)
        if not room:
            wrong.append(f"{path.relative_to(ROOT)}: is in no room")
            continue
        for name in re.findall(r'^\s*#\s*include\s*["<](.+)[">]', path.read_text(encoding="utf-8"), re.MULTILINE):
            header = headers.get(pathlib.PurePath(name).name)
            if header and not (path.parent / name).exists() and room_of(header) not in allowed_in(room):
                wrong.append(f"{path.relative_to(ROOT)}: {room} includes {header.name} of {room_of(header)}")
    print("\n".join(wrong or ["every include points downwards"]))
    return 1 if wrong else 0


sys.exit(main())
