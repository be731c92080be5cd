# What the scripts share: packages, configuring, building. To be sourced by a bash script.
# shellcheck shell=bash disable=SC2034

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
logs=$root/build/logs

# Debian packages that building needs, and those that the tests, making packages, the benchmarks, coverage and fuzzing,
# and the checks of CI need besides. What configuring the tests looks for is in test_build_packages.
build_packages=(cmake g++ libfontconfig-dev libqpdf-dev ninja-build qtbase5-dev qttools5-dev qttools5-dev-tools)
test_build_packages=(ccache doxygen)
test_packages=(
    "${test_build_packages[@]}" abiword fonts-dejavu-core fonts-liberation fonts-wqy-microhei libreoffice-writer-nogui
    man-db mandoc pandoc parallel pkgconf poppler-utils python3 qpdf rsync tidy unrtf valgrind xclip xvfb
)
package_packages=(debhelper dpkg-dev)
bench_packages=(abiword libbenchmark-dev libreoffice-writer-nogui pandoc python3 unrtf)
clang_packages=(clang libclang-rt-dev llvm)
ci_packages=(clang-format clang-tidy file lintian qt6-base-dev shellcheck)

# say WORD…: prints a message, with the minutes and seconds since the script has started.
say() {
    printf '%s %d:%02d: %s\n' "$(basename "$0")" $((SECONDS / 60)) $((SECONDS % 60)) "$*" >&2
}

fail() {
    say "$*"
    exit 1
}

# logged NAME COMMAND…: runs COMMAND with its output in build/logs/NAME.log, whose end is shown on failure.
logged() {
    local log=$logs/$1.log
    shift
    mkdir -p "$logs"
    "$@" >"$log" 2>&1 </dev/null && return
    tail -n 40 "$log" >&2
    fail "failed, the whole output is in $log: $*"
}

# missing_packages PACKAGE…: prints those that are not installed.
missing_packages() {
    local installed
    installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null) || true
    for package in "$@"; do
        grep -qxF "$package installed" <<<"$installed" || echo "$package"
    done
}

as_root() {
    if [[ $(id -u) == 0 ]]; then
        env DEBIAN_FRONTEND=noninteractive "$@"
    else
        sudo env DEBIAN_FRONTEND=noninteractive "$@"
    fi
}

apt_install() {
    as_root apt-get -o DPkg::Lock::Timeout=300 install -y --no-install-recommends "$@" </dev/null
}

# not_installable PACKAGE…: prints those that apt cannot install.
not_installable() {
    for package in "$@"; do
        apt-get install --simulate "$package" >/dev/null 2>&1 || echo "$package"
    done
}

# need_packages PACKAGE…: installs those that are missing, as root or through sudo.
need_packages() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    command -v apt-get >/dev/null || fail "this system has no apt-get, please provide: ${missing[*]}"
    if [[ $(id -u) != 0 ]] && ! command -v sudo >/dev/null; then
        fail "neither root nor sudo, please run as root: apt-get install ${missing[*]}"
    fi
    say "installing ${missing[*]}"
    mkdir -p "$logs"
    local log=$logs/apt.log
    apt_install "${missing[@]}" >"$log" 2>&1 && return
    # The lists of packages may be missing or out of date.
    if as_root apt-get update >>"$log" 2>&1 </dev/null && apt_install "${missing[@]}" >>"$log" 2>&1; then
        return
    fi
    local culprits
    mapfile -t culprits < <(not_installable "${missing[@]}")
    ((${#culprits[@]})) || culprits=("${missing[@]}")
    fail "cannot install ${culprits[*]}; what apt-get says is in $log"
}

# use_ccache: has ccache, where it is installed, keep what is compiled.
use_ccache() {
    command -v ccache >/dev/null || return 0
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
    # debhelper has compilers run with another home folder.
    CCACHE_DIR=${CCACHE_DIR:-$(ccache --get-config cache_dir)}
    export CCACHE_DIR
    # Compilers list what they include, so ccache need not preprocess a source that it does not know.
    export CCACHE_DEPEND=1
    # What ccache asks for to cache what is compiled with a precompiled header.
    export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS:-pch_defines,time_macros,include_file_mtime,include_file_ctime}
}

configure_preset() {
    (cd "$root" && cmake --preset "$1")
}

# build_preset PRESET [TARGET…]: configures what is not configured yet, and builds what is not built yet.
build_preset() {
    local preset=$1 folder=$root/build/$1
    shift
    use_ccache
    if [[ ! -f $folder/build.ninja || $root/CMakePresets.json -nt $folder/build.ninja ]]; then
        say "configuring and building in build/$preset"
        logged "configure-$preset" configure_preset "$preset"
    fi
    logged "build-$preset" ninja -C "$folder" "$@"
}

# test_preset PRESET [ARGUMENT…]: runs the tests of a preset that is built.
test_preset() {
    (cd "$root" && ctest --preset "$1" -j "$(nproc)" "${@:2}")
}

# fuzz_targets: prints the names of the fuzzing targets.
fuzz_targets() {
    (cd "$root/fuzz" && printf '%s\n' fuzz_*.cpp | sed 's/^fuzz_//; s/\.cpp$//')
}
