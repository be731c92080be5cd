#!/usr/bin/env bash
# coverage.sh [LEAST_LINES LEAST_BRANCHES]: installs and builds what is missing, runs the tests of the library under
# sanitizers, and prints the coverage of each file of rtf/. Fails when the library as a whole is below the percentages
# given. build/asan/report shows the files with the lines that never ran.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

least_lines=${1:-0} least_branches=${2:-0}

need_packages "${build_packages[@]}" "${test_packages[@]}" "${clang_packages[@]}"
build_preset asan
folder=$root/build/asan
rm -rf "$folder/counts"
say "running the tests"
# Programs of the same build add up their counts in four files.
LLVM_PROFILE_FILE=$folder/counts/%4m.profraw \
    logged coverage-tests test_preset coverage
llvm-profdata merge --sparse "$folder"/counts/*.profraw -o "$folder/all.profdata"
rm -rf "$folder/counts"

measured=("$folder/lib/libOrvRtf.so" --instr-profile "$folder/all.profdata" "$root/rtf")
llvm-cov show --format html --show-branches count --output-dir "$folder/report" "${measured[@]}"
llvm-cov export --summary-only "${measured[@]}" | python3 "$root/scripts/coverage.py" "$least_lines" "$least_branches"
