#!/usr/bin/env bash
# corpus.sh [FOLDER]: converts every RTF file below FOLDER to text and compares the words with the expected texts in
# FOLDER/expected, by FOLDER/text_recall.py. Where there is a FOLDER/format_agreement.py, it converts them to HTML too and
# compares the formats with those in FOLDER/expected-formats, but for the exceptions listed there and in
# tests/data/format-exceptions.tsv. Fails when a conversion crashes or hangs, or when the mean recall or agreement is too
# low. Exits with 77 when no folder is named.
#
# ORVRTF_CORPUS      FOLDER, where no argument names it
# ORVRTF_TOOL        the orvrtf to run; by default it is built
# ORVRTF_MIN_RECALL  least mean recall, 0.99 by default
# ORVRTF_MIN_FORMATS least mean agreement of each format, 0.99 by default; 0.04 less for the labels of lists

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
mkdir "$results/text" "$results/html"

# A report of a sanitizer must not look like the exit status 1 of a damaged file.
export ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}exitcode=125
export UBSAN_OPTIONS=${UBSAN_OPTIONS:+$UBSAN_OPTIONS:}exitcode=125
export ORVRTF_TOOL corpus results

# shellcheck disable=SC2317
# Statuses from 124 on are those of timeout itself and of crashes.
convert_to() {
    local format=$1 file=$2 name=${2#"$corpus"/} folder=$3 status=0
    local output=$folder/${name%.*}.$format
    mkdir -p "$(dirname "$output")"
    timeout -k 5 60 "$ORVRTF_TOOL" convert --to "$format" - - <"$file" >"$output" 2>"$output.err" || status=$?
    ((status < 124)) || echo "$name: exit status $status: $(tail -n 1 "$output.err")" >>"$results/failures"
    rm "$output.err"
}

# shellcheck disable=SC2317
convert_one() {
    convert_to txt "$1" "$results/text"
    [[ ! -f $corpus/format_agreement.py ]] || convert_to html "$1" "$results/html"
}
export -f convert_to convert_one

# shellcheck disable=SC2016
find "$corpus" -type f -iname '*.rtf' -print0 \
    | xargs -0 -r -n 8 -P "$(nproc)" bash -c 'for file; do convert_one "$file"; done' convert_one

status=0
python3 "$corpus/text_recall.py" "$results/text" "$corpus/expected" \
    --fail-under "${ORVRTF_MIN_RECALL:-0.99}" || status=$?
((status == 0)) || say "the mean recall is below ${ORVRTF_MIN_RECALL:-0.99}"

# compare_formats: of each format by itself.
compare_formats() {
    local least=${ORVRTF_MIN_FORMATS:-0.99} attribute limits=()
    for attribute in family size bold italic underline strike position colour background caps \
        alignment direction left right first above below line heading break shading link \
        list level table depth row column rowspan colspan cell; do
        limits+=(--fail-under "$attribute=$least")
    done
    limits+=(--fail-under "label=$(python3 -c "print($least - 0.04)")")
    cp -rs "$(realpath "$corpus")/expected-formats" "$results/expected-formats"
    rm -f "$results/expected-formats/exceptions.tsv"
    cat "$corpus/expected-formats/exceptions.tsv" "$root/tests/data/format-exceptions.tsv" \
        >"$results/expected-formats/exceptions.tsv"
    python3 "$corpus/format_agreement.py" "$results/html" "$results/expected-formats" "${limits[@]}"
}
if [[ -f $corpus/format_agreement.py ]]; then
    compare_formats || {
        status=1
        say "the formats agree too little"
    }
fi

if [[ -f $results/failures ]]; then
    cat "$results/failures" >&2
    fail "$(wc -l <"$results/failures") files made orvrtf crash or hang"
fi
exit "$status"
