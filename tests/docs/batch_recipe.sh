#!/usr/bin/env bash
# batch_recipe.sh DOCS ORVRTF: runs what the file DOCS says about converting files on many hosts, with hosts that are
# folders of this computer and the program ORVRTF on them. It is interrupted once, and one file fails the first time.

set -euo pipefail

for program in parallel rsync; do
    command -v "$program" >/dev/null || {
        echo "skipped: $program is not installed"
        exit 77
    }
done

docs=$1
tool=$2
tests=$(cd "$(dirname "$0")" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

fail() {
    echo "$*" >&2
    exit 1
}

# recipe NUMBER: prints a block of shell of the section about hosts.
recipe() {
    awk -v number="$1" '
        /^## / { isSection = /many hosts/ }
        /^```$/ { isBlock = 0 }
        isSection && isBlock && count == number
        /^```sh$/ && isSection { isBlock = 1; ++count }' "$docs"
}

# What the hosts run as orvrtf: notes each call, and fails the first time for the file that is to fail.
mkdir "$folder/bin"
cat >"$folder/bin/orvrtf" <<END
#!/bin/sh
printf '%s\n' "\$2" >>'$folder/calls'
case \$2 in *fails*) mkdir '$folder/failed' 2>/dev/null && exit 1 ;; esac
exec '$tool' "\$@"
END
chmod +x "$folder/bin/orvrtf"

# parallel runs its commands with $SHELL, which a login sets.
export SHELL=/bin/bash
export HOST_FOLDERS=$folder/hosts PATH=$folder/bin:$PATH HOME=$folder/home PARALLEL_SSH=$tests/localssh.sh
mkdir -p "$HOME" "$HOST_FOLDERS" "$folder/work/letters/sub"
cd "$folder/work"
# shellcheck disable=SC2016 # That is the name.
names=('a fails once' "it's" 'q"uote' '$HOME `x`' 'ä €' plain sub/-dash 'sub/two  blanks')
for name in "${names[@]}"; do
    printf '{\\rtf1 Text %s\\par}' "${#name}" >"letters/$name.rtf"
done

for number in 1 2; do
    [[ -n $(recipe $number) ]] || fail "there is no block $number of shell in the section of $docs"
done
eval "$(recipe 1)"
run() {
    eval "$(recipe 2)" </dev/null
}

# One file at a time on each host, and no new one after three.
if PARALLEL="--will-cite --jobs 1 --halt soon,done=3" run 2>"$folder/errors"; then
    fail "the interrupted run says that all is well"
fi
[[ -f $folder/calls ]] || fail "no file was begun: $(<"$folder/errors")"
calls=$(wc -l <"$folder/calls")
((calls >= 3 && calls <= 4)) || fail "$calls files were begun before the interruption"

PARALLEL="--will-cite" run || fail "the second run failed"
for name in "${names[@]}"; do
    output=letters/$name.txt
    [[ -f $output && $(<"$output") == "Text ${#name}" ]] || fail "$output is missing or wrong"
    calls=$(grep -cxF "letters/$name.rtf" "$folder/calls")
    expected=1
    [[ $name == *fails* ]] && expected=2
    ((calls == expected)) || fail "$name was converted $calls times"
done
for host in alpha beta; do
    grep -q "	$host	" log || fail "$host has done nothing"
done
leftovers=$(find "$HOST_FOLDERS" -type f ! -path '*/.parallel/*')
[[ -z $leftovers ]] || fail "left on the hosts: $leftovers"

# Once more, when nothing is left to do.
cp "$folder/calls" "$folder/calls-before"
PARALLEL="--will-cite" run || fail "the third run failed"
cmp "$folder/calls" "$folder/calls-before" || fail "the third run has converted something"
