#!/usr/bin/env python3
"""links.py FOLDER: fails for each relative link in the Markdown files of FOLDER whose file or heading does not exist."""

import pathlib
import re
import sys

CODE = re.compile(r"^ *```.*?^ *```$|`[^`\n]*`", re.DOTALL | re.MULTILINE)
LINK = re.compile(r"\]\(([^)\s]+)\)")
HEADING = re.compile(r"^#+ (.*)$", re.MULTILINE)


def without_code(page):
    return CODE.sub("", page.read_text())


def anchors(page):
    """The names that hosts of Git repositories give to headings."""
    headings = HEADING.findall(page.read_text())
    return {re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-") for heading in headings}


def broken_links(page):
    for link in LINK.findall(without_code(page)):
        if re.match(r"\w+:", link):
            continue
        path, _, anchor = link.partition("#")
        target = page.parent / path if path else page
        if not target.exists():
            yield f"{page}: {link}: no such file"
        elif anchor and anchor not in anchors(target):
            yield f"{page}: {link}: no such heading"


def main():
    folder = pathlib.Path(sys.argv[1])
    pages = sorted(page for top in folder.iterdir() if top.name != "build"
                   for page in ([top] if top.suffix == ".md" else top.rglob("*.md")))
    problems = [problem for page in pages for problem in broken_links(page)]
    print("\n".join(problems) or f"{len(pages)} pages have no broken link")
    return 1 if problems else 0


sys.exit(main())
