#!/usr/bin/env bash
# subproject.sh SOURCE BUILD COMPILER CMAKE QT_MAJOR: an application that takes the library in with add_subdirectory()
# gets the libraries and their public headers only. What it compiles is linked to the libraries of BUILD.

set -euo pipefail

source=$1 build=$2 compiler=$3 cmake=$4 qt=$5

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
project="$scratch/an application"
mkdir "$project"
cp "$source/examples/consumer/main.cpp" "$project"
cat >"$project/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.16)
project(Application LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
add_subdirectory("$source" OrvRtf)
add_executable(application main.cpp)
target_link_libraries(application PRIVATE OrvRtf::OrvRtf)
END

fail() {
    echo "subproject.sh: $*" >&2
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

# configure FOLDER OPTION…: configures the application in FOLDER.
configure() {
    quietly "$cmake" -S "$project" -B "$scratch/$1" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
        -DORVRTF_QT_MAJOR="$qt" "${@:2}"
}

# linked FOLDER: the names of the programs and shared libraries that FOLDER is configured to build.
linked() {
    ninja -C "$scratch/$1" -t targets all | sed -nE 's,^([^:]*/)?([^/:]+): CXX_(EXECUTABLE|SHARED_LIBRARY|MODULE_LIBRARY)_LINKER.*,\2,p' | sort | paste -sd ' '
}

# commands FOLDER NAME…: those of NAME that can be built by name in FOLDER.
commands() {
    ninja -C "$scratch/$1" -t targets all | grep -oxE "($(paste -sd '|' <(printf '%s\n' "${@:2}"))): phony" || true
}

check_what_is_built() {
    same "what is built by default" \
        "application libOrvBase.so.1.0.0 libOrvCore.so.1.0.0 libOrvGui.so.1.0.0 libOrvRtf.so.1.0.0" "$(linked default)"
    same "names that the application may want for itself" "" \
        "$(commands default doc translations update-translations)"
    same "tests" "Total Tests: 0" "$(cd "$scratch/default" && ctest -N | grep Total)"
    same "kind of build" "CMAKE_BUILD_TYPE:STRING=" "$(grep ^CMAKE_BUILD_TYPE: "$scratch/default/CMakeCache.txt")"
}

# Each folder that the compiler gets for the application's sources.
check_headers() {
    local folders folder
    folders=$(ninja -C "$scratch/default" -t commands application \
        | grep -F 'application.dir/main.cpp.o -c' | grep -oE -e '-I("[^"]*"|[^ ]+)' | sed 's/^-I//; s/"//g')
    grep -qxF "$source/rtf" <<<"$folders" || fail "the application does not get $source/rtf: $folders"
    while read -r folder; do
        same "private headers in $folder" "" "$(cd "$scratch/default" && find "$folder" -maxdepth 1 -name '*_p.h')"
    done <<<"$folders"
}

build_application() {
    local text
    quietly "$cmake" --build "$scratch/default" --target CMakeFiles/application.dir/main.cpp.o
    quietly "$compiler" -o "$scratch/application" "$scratch/default/CMakeFiles/application.dir/main.cpp.o" \
        "-L$build/lib" "-Wl,-rpath,$build/lib" -lOrvRtf -lOrvBase -lOrvGui -lOrvCore "-lQt${qt}Gui" "-lQt${qt}Core"
    text=$("$scratch/application" "$source/tests/data/pandoc-links.rtf" "$scratch/written.rtf")
    [[ $text == *"See the plain web link for more"* ]] || fail "the application prints: $text"
}

configure default
check_what_is_built
check_headers
build_application

configure "with tool" -DORVRTF_BUILD_TOOL=ON
[[ " $(linked "with tool") " == *" orvrtf "* ]] || fail "ORVRTF_BUILD_TOOL=ON does not build the tool"
