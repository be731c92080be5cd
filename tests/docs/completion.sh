#!/usr/bin/env bash
# completion.sh COMPLETION ORVRTF: checks what the file COMPLETION offers in bash for orvrtf's command lines, and that
# it knows each option of the program ORVRTF.

set -euo pipefail

# shellcheck disable=SC1090
source "$1"
tool=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
mkdir 'a folder' other
touch 'a letter.rtf' "it's.rtf" plain.txt
failures=0

# offers EXPECTED WORD…: checks that the last WORD is completed to the lines EXPECTED, in any order. Words are those of
# bash, for which "=" is one.
offers() {
    local expected=$1 got
    shift
    COMP_WORDS=(orvrtf "$@")
    COMP_CWORD=$#
    COMPREPLY=(left over)
    _orvrtf || true
    got=$(printf '%s\n' "${COMPREPLY[@]}" | sort)
    if [[ $got != "$(sort <<<"$expected")" ]]; then
        printf 'orvrtf %s: offered is\n%s\ninstead of\n%s\n' "$*" "$got" "$expected" >&2
        failures=$((failures + 1))
    fi
}

# list WORD…: prints the words on lines of their own.
list() {
    printf '%s\n' "$@"
}

complete -p orvrtf >/dev/null

offers "$(list convert info check strip diff)" ''
offers convert co
offers check --json ch
offers diff d
offers strip --jobs 4 st
offers strip --jobs = 4 st
offers '' nothing.starts.so

offers "$(list rtf html txt md odt pdf png)" convert --to ''
offers "$(list pdf png)" convert in.rtf --to p
offers "$(list rtf html txt md odt pdf png)" convert --to =
offers html convert --to = h
offers "$(list html txt)" diff a.rtf b.rtf --to ''
offers html diff --to = h
offers "$(list rtf html txt)" convert --from ''
offers "$(list auto libreoffice abiword pandoc)" convert --engine ''
offers "$(list auto abiword)" convert --engine = a
offers "$(list annotation footnote alternate)" convert --footnotes ''
offers "$(list annotation alternate)" convert --annotations a
offers "$(list full minimal none)" convert --html-style ''
offers 'a folder' convert --media a
offers '' convert --width ''
offers auto convert --jobs a
offers '' convert --timeout ''
offers "$(list 'a folder' other)" convert --output-dir ''
offers 'a folder' convert --output-dir = a

offers "$(list --table-layout --to --timeout)" convert --t
offers --json info --j
offers "$(list --from --to --engine --storage --help --version)" diff --
offers '' check --j
offers "$(list --help --version)" strip --
offers "$(list --json --jobs)" --j
offers "$(list 'a folder' 'a letter.rtf' "it's.rtf" other plain.txt)" convert ''
offers "$(list 'a folder' 'a letter.rtf')" convert --to txt a
offers "$(list 'a folder' 'a letter.rtf')" convert --to = txt a
offers "$(list 'a folder' 'a letter.rtf')" convert --storage plain.txt a
offers "it's.rtf" info it
offers 'a letter.rtf' check -- 'a l'
touch -- '--top'
offers --top convert -- --to
offers "$(list 'a folder' 'a letter.rtf')" convert -- --to a

options=$(LC_ALL=C "$tool" --help | grep -oE '^ +(-[a-z], )?--[a-z-]+' | grep -oE -- '--[a-z-]+')
[[ -n $options ]] || failures=$((failures + 1))
for option in $options; do
    offers "$option" "$option"
done

exit $((failures > 0))
