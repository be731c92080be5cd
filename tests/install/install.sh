#!/usr/bin/env bash
# install.sh SOURCE BUILD COMPILER CMAKE: installs BUILD into a folder with a blank in its name, moves it, and uses
# what is there as its users do: from CMake, with pkg-config, each header, and the tool.

set -euo pipefail

source=$1 build=$2 compiler=$3 cmake=$4

# Whatever the caller's environment points at, only the installed library counts.
unset CMAKE_PREFIX_PATH LD_LIBRARY_PATH PKG_CONFIG_PATH CXXFLAGS LDFLAGS

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
folder="$scratch/a folder"
prefix="$folder/second place"
headers=$prefix/include/OrvRtf
mkdir "$folder"

fail() {
    echo "install.sh: $*" >&2
    exit 1
}

# quietly COMMAND…: runs COMMAND, whose output is shown when it fails.
quietly() {
    "$@" >"$scratch/log" 2>&1 && return
    cat "$scratch/log" >&2
    fail "failed: $*"
}

# same WHAT EXPECTED FOUND: compares two texts.
same() {
    diff -u <(echo "$2") <(echo "$3") >&2 || fail "$1: - is expected, + is found"
}

install_and_move() {
    quietly "$cmake" --install "$build" --prefix "$folder/first place"
    mv "$folder/first place" "$prefix"
}

# Every public header, and nothing private.
check_installed_headers() {
    local expected
    expected=$(cd "$source" && printf '%s\n' ORVRtfVersion.h common/*.h rtf/*.h view/*.h platform/*/*.h | sed 's,.*/,,' | grep -v '_p\.h$')
    same "installed headers" "$(sort <<<"$expected")" "$(find "$headers" -printf '%P\n' | grep . | sort)"
}

# Nothing installed leads back to where it was built or was installed first.
check_no_old_paths() {
    local found
    found=$(grep -rlF -e "$folder/first place" "$prefix" || true)
    same "files that name the first place" "" "$found"
    found=$(grep -rlF -e "$build" "$prefix" --include='*.cmake' --include='*.pc' --include='*.h' || true)
    same "files that name the build folder" "" "$found"
    found=$(find "$prefix" -type f \( -name '*.so*' -o -path '*/bin/*' \) -exec readelf -d {} + \
        | grep -E 'R(UN)?PATH' | grep -F "$build" || true)
    same "run paths that name the build folder" "" "$found"
}

# check_consumer PROGRAM: what PROGRAM, the example, prints is what the installed tool reads from the file it writes,
# but for the empty paragraph behind a table, which is not written.
check_consumer() {
    local program=$1 text written
    text=$("$program" "$source/tests/data/pandoc-links.rtf" "$folder/written.rtf")
    [[ $text == *"See the plain web link for more"* ]] || fail "$program prints: $text"
    written=$("$prefix/bin/orvrtf" convert "$folder/written.rtf" - --to txt)
    same "text that $program has written" "$(grep . <<<"$text")" "$(grep . <<<"$written")"
}

consume_with_cmake() {
    quietly "$cmake" -S "$source/examples/consumer" -B "$folder/with cmake" -G Ninja \
        -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_PREFIX_PATH="$prefix"
    quietly "$cmake" --build "$folder/with cmake"
    check_consumer "$folder/with cmake/consumer"
}

# A library of another major version must not be taken.
refuse_other_versions() {
    cp -r "$source/examples/consumer" "$folder/newer consumer"
    sed -i 's/find_package(OrvRtf 1 /find_package(OrvRtf 2 /' "$folder/newer consumer/CMakeLists.txt"
    if "$cmake" -S "$folder/newer consumer" -B "$folder/newer" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
        -DCMAKE_PREFIX_PATH="$prefix" >"$scratch/log" 2>&1; then
        fail "find_package(OrvRtf 2) has found version 1"
    fi
    grep -qF 'requested version "2"' "$scratch/log" || fail "unexpected: $(cat "$scratch/log")"
}

# get_flags ARGUMENT…: sets flags to what pkg-config says, which escapes blanks for a shell.
flags=()
get_flags() {
    eval "flags=($(PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name OrvRtf.pc)") pkg-config "$@"))"
}

consume_with_pkg_config() {
    get_flags --cflags --libs OrvRtf
    quietly "$compiler" -fPIC -o "$folder/with pkg-config" "$source/examples/consumer/main.cpp" "${flags[@]}"
    LD_LIBRARY_PATH=$(dirname "$(find "$prefix" -name libOrvRtf.so)") check_consumer "$folder/with pkg-config"
}

# Each header alone, in the two ways it can be named, and with the strict settings an application may have.
compile_headers() {
    local header name
    get_flags --cflags OrvRtf
    for header in "$headers"/*.h; do
        name=$(basename "$header")
        printf '#include <%s>\n#include <OrvRtf/%s>\n' "$name" "$name" >"$scratch/header.cpp"
        quietly "$compiler" -std=c++17 -fPIC -fsyntax-only -Wall -Wextra -Wpedantic -Werror \
            -DQT_NO_KEYWORDS -DQT_NO_CAST_FROM_ASCII -DQT_NO_CAST_TO_ASCII \
            "$scratch/header.cpp" "${flags[@]}" "-I$prefix/include"
    done
}

install_and_move
check_installed_headers
check_no_old_paths
consume_with_cmake
refuse_other_versions
consume_with_pkg_config
compile_headers
