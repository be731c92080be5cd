#!/usr/bin/env bash
# corpus.sh [FOLDER]: converts every RTF file below FOLDER to text and compares the words with the expected texts in
# FOLDER/expected, by FOLDER/text_recall.py. Fails when a conversion crashes or hangs, or when the mean recall is too
# low. Exits with 77 when no folder is named.
#
# ORVRTF_CORPUS      FOLDER, where no argument names it
# ORVRTF_TOOL        the orvrtf to run; by default it is built
# ORVRTF_MIN_RECALL  least mean recall, 0.99 by default

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

corpus=${1:-${ORVRTF_CORPUS:-}}
if [[ -z $corpus ]]; then
    say "skipped: neither an argument nor ORVRTF_CORPUS names a folder of RTF files"
    exit 77
fi
[[ -f $corpus/text_recall.py ]] || fail "no text_recall.py in $corpus"

if [[ -z ${ORVRTF_TOOL:-} ]]; then
    need_packages "${build_packages[@]}" "${test_packages[@]}"
    build_preset default orvrtf
    ORVRTF_TOOL=$root/build/default/bin/orvrtf
fi

[[ -x $ORVRTF_TOOL ]] || fail "there is no program $ORVRTF_TOOL"

results=$(mktemp -d)
trap 'rm -rf "$results"' EXIT
mkdir "$results/text"

# A report of a sanitizer must not look like the exit status 1 of a damaged file.
export ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}exitcode=125
export UBSAN_OPTIONS=${UBSAN_OPTIONS:+$UBSAN_OPTIONS:}exitcode=125
export ORVRTF_TOOL corpus results

# shellcheck disable=SC2317
# Statuses from 124 on are those of timeout itself and of crashes.
convert_one() {
    local file=$1 name=${1#"$corpus"/} status=0
    local text=$results/text/${name%.*}.txt
    mkdir -p "$(dirname "$text")"
    timeout -k 5 60 "$ORVRTF_TOOL" convert --to txt - - <"$file" >"$text" 2>"$text.err" || status=$?
    ((status < 124)) || echo "$name: exit status $status: $(tail -n 1 "$text.err")" >>"$results/failures"
    rm "$text.err"
}
export -f convert_one

# shellcheck disable=SC2016
find "$corpus" -type f -iname '*.rtf' -print0 \
    | xargs -0 -r -n 8 -P "$(nproc)" bash -c 'for file; do convert_one "$file"; done' convert_one

status=0
python3 "$corpus/text_recall.py" "$results/text" "$corpus/expected" \
    --fail-under "${ORVRTF_MIN_RECALL:-0.99}" || status=$?
((status == 0)) || say "the mean recall is below ${ORVRTF_MIN_RECALL:-0.99}"
if [[ -f $results/failures ]]; then
    cat "$results/failures" >&2
    fail "$(wc -l <"$results/failures") files made orvrtf crash or hang"
fi
exit "$status"
