#!/usr/bin/env bash
# coverage.sh [LEAST_LINES LEAST_BRANCHES]: installs and builds what is missing, runs the tests of the library, and
# prints how much of the lines and branches of each file of rtf/ they run. With percentages given, it fails when
# the library as a whole has less. build/coverage/report shows the files, with what never ran.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

least_lines=${1:-0} least_branches=${2:-0}

need_packages "${build_packages[@]}" "${test_packages[@]}" "${coverage_packages[@]}"
build_preset coverage
folder=$root/build/coverage
rm -rf "$folder/counts"
say "running the tests"
LLVM_PROFILE_FILE=$folder/counts/%p.profraw logged coverage-tests test_preset coverage
find "$folder/counts" -name '*.profraw' >"$folder/counts/list"
llvm-profdata merge --sparse -f "$folder/counts/list" -o "$folder/all.profdata"
rm -rf "$folder/counts"

measured=("$folder/lib/libOrvRtf.so" --instr-profile "$folder/all.profdata" "$root/common" "$root/rtf" "$root/view")
llvm-cov show --format html --show-branches count --output-dir "$folder/report" "${measured[@]}"
llvm-cov export --summary-only "${measured[@]}" | python3 "$root/scripts/coverage.py" "$least_lines" "$least_branches"
