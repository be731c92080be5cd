#!/usr/bin/env bash
# packages.sh SOURCE: makes the Debian packages in SOURCE/build/packages and checks their content; installs, runs and
# removes them in a throw-away root when it runs as root, and on the system itself when ORVRTF_TEST_SYSTEM_INSTALL is
# "true".

set -euo pipefail

source=$1
folder=$source/build/packages
sample=$source/tests/data/pandoc-links.rtf

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
declare -A deb
multiarch=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
libraries=usr/lib/$multiarch

fail() {
    echo "packages.sh: $*" >&2
    exit 1
}

# same WHAT EXPECTED FOUND: compares two texts.
same() {
    diff -u <(echo "$2") <(echo "$3") >&2 || fail "$1: - is expected, + is found"
}

make_packages() {
    "$source/scripts/package.sh" "$folder" >"$scratch/made"
    while read -r file; do
        deb[$(dpkg-deb --field "$file" Package)]=$file
    done <"$scratch/made"
    same "packages" "liborvrtf-dev liborvrtf1 orvrtf" "$(printf '%s\n' "${!deb[@]}" | sort | paste -sd ' ')"
}

run_lintian() {
    local as_root=()
    [[ $(id -u) != 0 ]] || as_root=(--allow-root)
    lintian "${as_root[@]}" --fail-on error,warning "${deb[@]}" || fail "lintian complains"
}

# depends PACKAGE EXPRESSION: PACKAGE depends on what the extended regular expression says.
depends() {
    local all
    all=$(dpkg-deb --field "${deb[$1]}" Depends)
    [[ ", $all," =~ ,\ $2, ]] || fail "$1 does not depend on $2 but on $all"
}

# The version of the packages is written down apart from that of the project.
check_version() {
    local version
    version=$(sed -nE 's/^ +VERSION ([0-9.]+)$/\1/p' "$source/CMakeLists.txt")
    same "version" "$version" "$(dpkg-deb --field "${deb[liborvrtf1]}" Version | sed 's/-[^-]*$//')"
}

check_dependencies() {
    local version
    version=$(dpkg-deb --field "${deb[liborvrtf1]}" Version)
    depends liborvrtf1 'libqt5gui5[^,]*'
    depends liborvrtf1 'libqt5core5a[^,]*'
    depends liborvrtf1 'libfontconfig1[^,]*'
    depends liborvrtf1 'libstdc\+\+6[^,]*'
    depends liborvrtf-dev "liborvrtf1 \(= $version\)"
    depends liborvrtf-dev qtbase5-dev
    depends orvrtf "liborvrtf1 \(= $version\)"
    depends orvrtf 'libqt5core5a[^,]*'
    depends orvrtf 'libqpdf[0-9]+[^,]*'
}

# The linker's cache follows by itself, and packages of other programs learn what to depend on.
check_control_files() {
    dpkg-deb --control "${deb[liborvrtf1]}" "$scratch/control"
    same "triggers" "activate-noawait ldconfig" "$(grep -v '^#' "$scratch/control/triggers")"
    same "control files" "control md5sums shlibs triggers" \
        "$(find "$scratch/control" -type f -printf '%P\n' | sort | paste -sd ' ')"
    same "libraries in shlibs" "libOrvBase libOrvCore libOrvGui libOrvRtf" \
        "$(awk '$2 == 1 && $3 == "liborvrtf1" { print $1 }' "$scratch/control/shlibs" | sort | paste -sd ' ')"
}

# has PACKAGE PATH…: PACKAGE holds these files, links or folders.
has() {
    local package=$1 path files
    shift
    files=$(dpkg-deb --fsys-tarfile "${deb[$package]}" | tar --list)
    for path; do
        grep -qxF "./$path" <<<"$files" || fail "$package has no $path"
    done
}

check_content() {
    local name
    for name in Base Core Gui Rtf; do
        has liborvrtf1 "$libraries/libOrv$name.so.1"
        has liborvrtf-dev "$libraries/libOrv$name.so"
    done
    has liborvrtf-dev usr/include/OrvRtf/ORVTextRtf.h usr/include/OrvRtf/ORVTextFormat.h \
        "$libraries/cmake/OrvRtf/OrvRtfConfig.cmake" "$libraries/pkgconfig/OrvRtf.pc"
    has orvrtf usr/bin/orvrtf
    for name in "${!deb[@]}"; do
        has "$name" "usr/share/doc/$name/copyright" "usr/share/doc/$name/changelog.gz" \
            "usr/share/doc/$name/changelog.Debian.gz"
    done
}

# check_stripped FOLDER: no symbols for debugging, no run path.
check_stripped() {
    local file
    while read -r file; do
        [[ $(file --brief "$file") == *", stripped" ]] || fail "$file is not stripped"
        ! readelf -d "$file" | grep -E 'R(UN)?PATH' || fail "$file has a run path"
    done < <(find "$1" -type f \( -name '*.so*' -o -path '*/bin/*' \))
}

# prints_sample COMMAND…: COMMAND prints the text of the sample.
prints_sample() {
    local text
    text=$("$@")
    [[ $text == *"See the plain web link for more"* ]] || fail "$* prints: $text"
}

# run_tool PROGRAM: converts the sample.
run_tool() {
    prints_sample "$1" convert "$sample" - --to txt
}

try_unpacked() {
    local file
    for file in "${deb[@]}"; do
        dpkg-deb --extract "$file" "$scratch/unpacked"
    done
    check_stripped "$scratch/unpacked/usr"
    LD_LIBRARY_PATH=$scratch/unpacked/$libraries run_tool "$scratch/unpacked/usr/bin/orvrtf"
}

# Qt is missing in the throw-away root, so dependencies cannot be met there.
try_throwaway_root() {
    local base=$scratch/root left
    mkdir -p "$base"/var/lib/dpkg/{info,updates,triggers}
    touch "$base"/var/lib/dpkg/{status,available}
    dpkg --root="$base" --force-depends --log="$scratch/dpkg.log" --install "${deb[@]}" >"$scratch/log" 2>&1 \
        || fail "dpkg --install: $(cat "$scratch/log")"
    LD_LIBRARY_PATH=$base/$libraries run_tool "$base/usr/bin/orvrtf"
    dpkg --root="$base" --force-depends --log="$scratch/dpkg.log" --purge "${!deb[@]}" >"$scratch/log" 2>&1 \
        || fail "dpkg --purge: $(cat "$scratch/log")"
    left=$(find "$base" -path "$base/var" -prune -o ! -type d -print)
    same "files that are left" "" "$left"
}

purge_from_system() {
    dpkg --purge "${!deb[@]}"
}

try_system() {
    ! dpkg-query -W "${!deb[@]}" >"$scratch/log" 2>&1 || fail "already installed: $(cat "$scratch/log")"
    trap 'purge_from_system; rm -rf "$scratch"' EXIT
    dpkg --install "${deb[@]}"
    run_tool orvrtf
    build_consumer
    purge_from_system
    trap 'rm -rf "$scratch"' EXIT
    hash -r
    ! command -v orvrtf || fail "there is an orvrtf after removing it"
    ! ldconfig -p | grep -F libOrv || fail "the linker knows the libraries after they are removed"
}

# Against /usr, without telling anything where to look.
build_consumer() {
    cmake -S "$source/examples/consumer" -B "$scratch/consumer"
    cmake --build "$scratch/consumer"
    prints_sample "$scratch/consumer/consumer" "$sample" "$scratch/written.rtf"
    local flags
    read -ra flags < <(pkg-config --cflags --libs OrvRtf)
    c++ -fPIC -o "$scratch/with-pkg-config" "$source/examples/consumer/main.cpp" "${flags[@]}"
    prints_sample "$scratch/with-pkg-config" "$sample" "$scratch/written.rtf"
}

make_packages
run_lintian
check_version
check_dependencies
check_control_files
check_content
try_unpacked
if [[ $(id -u) == 0 ]]; then
    try_throwaway_root
    if [[ ${ORVRTF_TEST_SYSTEM_INSTALL:-} == true ]]; then
        try_system
    fi
fi
