#!/usr/bin/env bash
# symbols.sh [--update] [FOLDER]: compares what the libraries in FOLDER export with the files exported-symbols.txt
# beside their sources; without FOLDER those of the default preset, which are built. With --update the files are
# written anew: to be done, and looked at in the commit, when the interface is meant to change.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

declare -A folders=([OrvRtf]=rtf [OrvBase]=platform/base [OrvGui]=platform/gui [OrvCore]=platform/core)

# exported LIBRARY: the names that programs can link to, each once: constructors and destructors have several.
exported() {
    nm -DC --defined-only --format=posix "$1" | sed -E 's/ [A-Za-z]( [0-9a-f]*)*$//' | LC_ALL=C sort -u
}

update=no
if [[ ${1:-} == --update ]]; then
    update=yes
    shift
fi
libraries=${1:-}
if [[ -z $libraries ]]; then
    need_packages "${build_packages[@]}"
    build_preset default "${!folders[@]}"
    libraries=$root/build/default/lib
fi

changed=()
for name in "${!folders[@]}"; do
    file=$root/${folders[$name]}/exported-symbols.txt
    if [[ $update == yes ]]; then
        exported "$libraries/lib$name.so" >"$file"
    elif ! diff -u --label "${folders[$name]}/exported-symbols.txt" --label "lib$name.so" \
        "$file" <(exported "$libraries/lib$name.so"); then
        changed+=("lib$name")
    fi
done
((${#changed[@]} == 0)) || fail "${changed[*]}: what is exported has changed; if it is meant to: scripts/symbols.sh --update"
