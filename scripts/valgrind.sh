#!/usr/bin/env bash
# valgrind.sh [TEST…]: installs and builds what is missing, and runs test classes under valgrind: all that are
# about the library and need no other programs, or those named. Fails when one reads or writes where
# it must not, uses what was never set, or loses memory.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# Hours under valgrind, or about processes: the sanitizers take care of these.
left_out="corpus|corpus_.*|damaged|editor.*|extremes|hostile|languages|limits|loadfile|tables_model"
left_out+="|texttransform.*|threads|tool.*"

need_packages "${build_packages[@]}" "${test_packages[@]}"
build_preset default
tests=("$@")
if ((${#tests[@]} == 0)); then
    mapfile -t tests < <(for program in "$root"/build/default/bin/tst_*; do "$program" --list; done \
        | grep -vxE "$left_out" | sort)
fi

# run_one TEST: runs a test class under valgrind, and shows what valgrind says when it fails.
run_one() {
    local log=$logs/valgrind-$1.log program
    for program in "$root"/build/default/bin/tst_*; do
        "$program" --list | grep -qxF "$1" && break
    done
    if valgrind --quiet --error-exitcode=1 --leak-check=full --show-leak-kinds=definite --errors-for-leak-kinds=definite \
        --suppressions="$root/tests/support/valgrind.supp" --log-file="$log" \
        "$program" "$1" >"$log.out" 2>&1 </dev/null; then
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
printf '%s\n' "${tests[@]}" | xargs -P "$(nproc)" -I '{}' bash -c 'run_one "{}"' \
    || fail "not clean under valgrind"
say "${#tests[@]} test classes are clean under valgrind"
