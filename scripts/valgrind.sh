#!/usr/bin/env bash
# valgrind.sh [SUBJECT…]: installs and builds what is missing, and runs test programs under valgrind: all that are
# about the library and need no other programs, or those of the subjects named. Fails when one reads or writes where
# it must not, uses what was never set, or loses memory.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# Hours under valgrind, or about processes: the sanitizers take care of these.
left_out="corpus|corpus_.*|damaged|editor.*|extremes|german|hostile|limits|loadfile|tables_model|tables_robustness"
left_out+="|texttransform.*|threads|tool.*"

need_packages "${build_packages[@]}" "${test_packages[@]}"
build_preset default
subjects=("$@")
if ((${#subjects[@]} == 0)); then
    mapfile -t subjects < <(find "$root/build/default/bin" -name 'tst_*' -printf '%f\n' | sed 's/^tst_//' \
        | grep -vxE "$left_out" | sort)
fi

# run_one SUBJECT: runs a test program under valgrind, and shows what valgrind says when it fails.
run_one() {
    local log=$logs/valgrind-$1.log
    if valgrind --quiet --error-exitcode=1 --leak-check=full --show-leak-kinds=definite --errors-for-leak-kinds=definite \
        --suppressions="$root/tests/valgrind.supp" --log-file="$log" \
        "$root/build/default/bin/tst_$1" >"$log.out" 2>&1 </dev/null; then
        echo "$1: clean"
    else
        tail -n 15 "$log.out"
        head -n 60 "$log"
        echo "$1: FAILED, the whole output is in $log"
        return 1
    fi
}
export -f run_one
# What the regular expressions compile to at run time reads more bytes at once than were set.
export QT_ENABLE_REGEXP_JIT=0
export root logs QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
mkdir -p "$logs"
printf '%s\n' "${subjects[@]}" | xargs -P "$(nproc)" -I '{}' bash -c 'run_one "{}"' \
    || fail "not clean under valgrind"
say "${#subjects[@]} test programs are clean under valgrind"
