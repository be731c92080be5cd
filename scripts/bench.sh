#!/usr/bin/env bash
# bench.sh [ARGUMENT…]: installs and builds what is missing, runs the benchmarks, and prints what the library
# takes in comparison. Arguments go to the benchmark programs, --benchmark_filter=REGEX for example.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages "${build_packages[@]}" "${bench_packages[@]}"
build_preset bench
results=$(mktemp -d)
trap 'rm -rf "$results"' EXIT
export QT_QPA_PLATFORM=offscreen
for subject in reading importing stripping writing; do
    say "running bench_$subject"
    logged "bench-$subject" "$root/build/bench/bin/bench_$subject" --benchmark_repetitions=5 \
        --benchmark_report_aggregates_only=true --benchmark_out_format=json \
        --benchmark_out="$results/$subject.json" "$@"
done
if (($# == 0)); then
    say "measuring whole processes"
    logged bench-processes "$root/bench/processes.py" "$root/build/bench/bin" "$results/processes.json"
fi
python3 "$root/bench/table.py" "$results"/*.json
