#!/usr/bin/env bash
# compare.sh COMMIT [FOLDER…]: compares what the library makes of RTF files with what it made of them at COMMIT: the
# documents property by property, the RTF written in both forms, the stripped RTF and the stock form. The files are all
# *.rtf below the FOLDERs, of this project's samples and seeds where none is given. Fails when anything differs; the
# outputs are kept in build/compare.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

(($# >= 1)) || fail "usage: compare.sh COMMIT [FOLDER…]"
commit=$(git -C "$root" rev-parse --verify --quiet "$1^{commit}") || fail "there is no commit $1"
shift
folders=("$@")
((${#folders[@]})) || folders=("$root/tests/data" "$root/fuzz/seeds")
work=$root/build/compare

# build_version SOURCE FOLDER: installs the library of SOURCE in FOLDER, and the program that converts beside it.
build_version() {
    local source=$1 folder=$2
    cmake -S "$source" -B "$folder/build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_INSTALL_PREFIX="$folder" \
        -DORVRTF_BUILD_TESTS=OFF -DORVRTF_BUILD_EXAMPLES=OFF
    cmake --build "$folder/build"
    cmake --install "$folder/build"
    local flags
    flags=$(PKG_CONFIG_PATH=$(dirname "$(find "$folder/lib" -name OrvRtf.pc)") pkg-config --cflags --libs OrvRtf Qt5Gui)
    # shellcheck disable=SC2086
    g++ -std=c++17 -O1 -fPIC "$root/scripts/outputs.cpp" -o "$folder/outputs" $flags \
        -Wl,-rpath,"$(dirname "$(find "$folder/lib" -name libOrvRtf.so)")"
}

need_packages "${build_packages[@]}" pkgconf
before=$work/$commit now=$work/now
if [[ ! -x $before/outputs ]]; then
    say "building $commit"
    git -C "$root" worktree prune
    git -C "$root" worktree add --force --detach "$work/source" "$commit" >/dev/null 2>&1
    logged compare-before build_version "$work/source" "$before"
    git -C "$root" worktree remove --force "$work/source"
fi
say "building the state at hand"
logged compare-now build_version "$root" "$now"

export QT_QPA_PLATFORM=offscreen QT_HASH_SEED=0
find "${folders[@]}" -type f -iname '*.rtf' | LC_ALL=C sort >"$work/files"
for version in "$before" "$now"; do
    rm -rf "$version/converted"
    mkdir -p "$version/converted"
    say "converting $(wc -l <"$work/files") files with $version"
    "$version/outputs" "$version/converted" <"$work/files" 2>"$version/messages" || fail "$version/outputs ended with status $?"
done
diff -rq "$before/converted" "$now/converted" || fail "the outputs differ"
say "$(find "$now/converted" -type f | wc -l) outputs of $(wc -l <"$work/files") files are the same, byte for byte"
