#!/usr/bin/env bash
# test.sh [--full] [ARGUMENT…]: installs what is missing, builds, and runs all tests. ARGUMENTs go to ctest.
#
# After all tests have passed, build/default/passed records the state they passed in: the files of the project, the
# packages installed on the system, the configuration, and the programs built. While nothing of that changes, only the
# quick tests are run; --full runs all tests nevertheless.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

full=no
if [[ ${1:-} == --full ]]; then
    full=yes
    shift
fi
folder=$root/build/default

# state: prints a hash of what decides how the tests end. Fails where git does not list the files.
state() {
    {
        (cd "$root" && git ls-files -z --cached --others --exclude-standard | xargs -0 sha256sum) &&
            dpkg-query -W &&
            cat "$folder/CMakeCache.txt" &&
            find "$folder/bin" "$folder/lib" -type f -printf '%P %s %T@\n' | sort
    } 2>/dev/null | sha256sum
}

need_packages "${build_packages[@]}" "${test_build_packages[@]}"
# The packages that only the tests need are installed during the build: dpkg uses one processor at a time.
trap wait EXIT
build_preset default &
build=$!
need_packages "${test_packages[@]}"
wait "$build"

if (($#)); then
    test_preset all "$@"
    exit
fi
now=$(state) || now=unknown
if [[ $full == no && $now != unknown && -f $folder/passed && $now == "$(<"$folder/passed")" ]]; then
    say "nothing has changed since all tests passed; running the quick tests (--full runs all)"
    test_preset default
    exit
fi
rm -f "$folder/passed"
test_preset all
echo "$now" >"$folder/passed"
