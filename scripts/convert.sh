#!/usr/bin/env bash
# convert.sh FILE.rtf OUT.html: installs and builds what is missing, and converts. OUT can end in .txt as well.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

if (($# < 2)); then
    say "usage: $0 FILE.rtf OUT.html"
    exit 2
fi

need_packages "${build_packages[@]}"
build_preset default orvrtf
"$root/build/default/bin/orvrtf" convert "$@"
[[ $2 == - ]] || say "wrote $2"
