#!/usr/bin/env bash
# corpusrecall.sh: runs scripts/corpus.sh where a folder is named; otherwise the test is skipped.

if [[ -z ${ORVRTF_CORPUS:-} ]]; then
    echo "skipped: ORVRTF_CORPUS names no folder of RTF files"
    exit 77
fi
exec "$(dirname "$0")/../../scripts/corpus.sh"
