#!/usr/bin/env bash
# test.sh [ARGUMENT…]: installs what is missing, builds, and runs the tests. Arguments go to ctest.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages "${build_packages[@]}" "${test_packages[@]}"
build_preset default
test_preset default "$@"
