#!/usr/bin/env bash
# manpage.sh PAGE ORVRTF: checks that the manual page PAGE is sound, and that it has each option and each command of the
# program ORVRTF.

set -euo pipefail

for program in mandoc man; do
    command -v "$program" >/dev/null || {
        echo "skipped: $program is not installed"
        exit 77
    }
done

page=$1
help=$(LC_ALL=C "$2" --help)

fail() {
    echo "$*" >&2
    exit 1
}

problems=$(mandoc -T lint -W warning "$page") || fail "$problems"
problems=$(man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null) || fail "man fails: $problems"
[[ -z $problems ]] || fail "$problems"

# Bold characters are written twice, with a backspace between.
text=$(mandoc -T ascii -O width=100 "$page" | sed 's/.\x08//g')
options=$(grep -oE '^ +(-[a-z], )?--[a-z-]+' <<<"$help" | grep -oE -- '-[a-z-]+')
[[ $options == *--version* ]] || fail "the program tells no options"
for option in $options; do
    grep -qE -- "^ +([^ ]+, )?$option( |,|$)" <<<"$text" || fail "$option has no place of its own"
done
commands=$(sed -n '/^Commands:/,/^IN and OUT/s/^  \([a-z][a-z]*\) .*/\1/p' <<<"$help")
[[ $commands == *strip* ]] || fail "the program tells no commands"
for command in $commands; do
    grep -qE "^ +$command " <<<"$text" || fail "the command $command is missing"
done
for section in NAME SYNOPSIS DESCRIPTION ENVIRONMENT 'EXIT STATUS' EXAMPLES; do
    grep -qx "$section" <<<"$text" || fail "the section $section is missing"
done
