#!/usr/bin/env python3
"""Prints the coverage that "llvm-cov export --summary-only" tells on the standard input, a line a file and one for
all; exits with 1 when all have less than the percentages given: coverage.py LEAST_LINES LEAST_BRANCHES."""

import json
import os
import sys


def row(name, summary):
    lines, branches = summary["lines"], summary["branches"]
    return (f"{name:36} {lines['percent']:6.1f} % of {lines['count']:5} lines"
            f" {branches['percent']:6.1f} % of {branches['count']:5} branches")


def main():
    least = {"lines": float(sys.argv[1]), "branches": float(sys.argv[2])}
    data = json.load(sys.stdin)["data"][0]
    for file in sorted(data["files"], key=lambda file: file["filename"]):
        print(row(os.path.basename(file["filename"]), file["summary"]))
    totals = data["totals"]
    print(row("all", totals))
    failed = False
    for kind, percentage in least.items():
        if totals[kind]["percent"] < percentage:
            print(f"less than {percentage:g} % of the {kind} run in the tests", file=sys.stderr)
            failed = True
    return 1 if failed else 0


sys.exit(main())
