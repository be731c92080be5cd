#!/usr/bin/env bash
# fuzz.sh TARGET SECONDS [ARGUMENT…]: installs and builds what is missing, and feeds inputs to the libFuzzer
# target fuzz_TARGET for so many seconds. Arguments go to libFuzzer: options, and folders of more seeds. New
# inputs are kept in build/fuzz/corpus/TARGET, those that fail in build/fuzz/crashes.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# Inputs longer than this make a run slow and find little.
longest=16384

mapfile -t targets < <(fuzz_targets)
(($# >= 2)) || fail "usage: fuzz.sh TARGET SECONDS [ARGUMENT…], TARGET being one of: ${targets[*]}"
target=$1 seconds=$2
shift 2
[[ " ${targets[*]} " == *" $target "* ]] || fail "there is no target $target, only: ${targets[*]}"
[[ $seconds =~ ^[1-9][0-9]*$ ]] || fail "not a number of seconds: $seconds"

# seed_corpus: fills $seeds with the seeds and the samples that are not too long.
seed_corpus() {
    mkdir -p "$seeds"
    find "$root/fuzz/seeds" "$root/tests/data" -name '*.rtf' -size -$((longest + 1))c \
        -exec cp -u -t "$seeds" {} +
}

need_packages "${build_packages[@]}" "${clang_packages[@]}"
build_preset fuzz "fuzz_$target"

folder=$root/build/fuzz
# Each target has seeds of its own, so that several can be started at once.
corpus=$folder/corpus/$target seeds=$folder/seeds/$target
mkdir -p "$corpus" "$folder/crashes"
seed_corpus
log=$logs/fuzz-$target.log
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=intercept_tls_get_addr=0
export LSAN_OPTIONS=suppressions=$root/tests/support/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1
say "running fuzz_$target for $seconds s"
if ! "$folder/bin/fuzz_$target" -max_total_time="$seconds" -max_len=$longest -entropic=0 -timeout=20 -rss_limit_mb=2048 \
    -dict="$folder/fuzz/rtf.dict" -artifact_prefix="$folder/crashes/$target-" -print_final_stats=1 \
    "$corpus" "$seeds" "$@" >"$log" 2>&1 </dev/null; then
    fail "fuzz_$target failed; the input is in build/fuzz/crashes, the output in $log:" \
        "$(grep -aE -m 1 'Failed check|SUMMARY|ERROR' "$log" || tail -n 1 "$log")"
fi
say "fuzz_$target: $(grep -aoE 'cov: .*' "$log" | tail -n 1)"
