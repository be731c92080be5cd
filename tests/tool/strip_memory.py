#!/usr/bin/env python3
"""strip_memory.py TOOL [MEGABYTES]: pipes generated RTF through "TOOL strip" and looks at the tool's memory.

Fails when the resident memory grows by 2 MB or more after the first megabyte, or when a byte of the output
is missing. Default size: 1024 MB.
"""

import subprocess
import sys
import threading

MEGABYTE = 1 << 20
LIMIT_KB = 2048

LINE = b"\\pard\\plain\\fs024 The quick brown fox jumps over {\\b the} lazy dog.\\foo1\\par\r\n"
STRIPPED = b"\\pard\\plain\\fs24 The quick brown fox jumps over \n{\\b the}\n lazy dog.\\par\n"


def resident_kb(pid):
    """The most memory the process has had so far."""
    with open(f"/proc/{pid}/status", encoding="ascii") as status:
        for line in status:
            if line.startswith("VmHWM:"):
                return int(line.split()[1])
    raise SystemExit("this system does not tell how much memory a process has")


def main():
    tool = sys.argv[1]
    megabytes = int(sys.argv[2]) if len(sys.argv) > 2 else 1024
    block = LINE * (MEGABYTE // len(LINE) + 1)
    block_output = len(STRIPPED) * (MEGABYTE // len(LINE) + 1)

    process = subprocess.Popen([tool, "strip", "-", "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    received = 0

    def drain():
        nonlocal received
        while chunk := process.stdout.read(MEGABYTE):
            received += len(chunk)

    reader = threading.Thread(target=drain)
    reader.start()
    process.stdin.write(block)
    before = resident_kb(process.pid)
    for _ in range(megabytes - 1):
        process.stdin.write(block)
    growth = resident_kb(process.pid) - before
    process.stdin.close()
    reader.join()

    print(f"{megabytes} MB in, {received / MEGABYTE:.0f} MB out, memory grew by {growth} KB")
    if process.wait() != 0:
        raise SystemExit("the tool failed")
    if received != megabytes * block_output:
        raise SystemExit(f"{received} bytes came out, not {megabytes * block_output}")
    if growth >= LIMIT_KB:
        raise SystemExit(f"memory grew by {growth} KB, which is not less than {LIMIT_KB}")


if __name__ == "__main__":
    main()
