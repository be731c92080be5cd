#!/usr/bin/env bash
# localssh.sh [OPTION…] HOST [--] COMMAND…: takes the place of ssh in tests. Runs COMMAND on this computer, in a folder
# that stands for the home of HOST: $HOST_FOLDERS/HOST.

set -euo pipefail

while [[ $1 == -* ]]; do
    [[ $1 == -[lopFiS] ]] && shift
    shift
done
export HOME=$HOST_FOLDERS/$1
shift
[[ $1 == -- ]] && shift
mkdir -p "$HOME"
cd "$HOME"
exec bash -c "$*"
