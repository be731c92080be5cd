#!/usr/bin/env bash
# package.sh [FOLDER]: installs and builds what is missing, and makes the Debian packages in FOLDER, build/packages by
# default: libraries (liborvrtf1), what programs are built with (liborvrtf-dev), and the tool (orvrtf).

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

folder=$(realpath -m "${1:-$root/build/packages}")

need_packages "${build_packages[@]}" "${package_packages[@]}"

# debhelper writes into the sources and beside them, so it gets a copy.
copy=$root/build/package/orvrtf
rm -rf "$root/build/package"
mkdir -p "$copy" "$folder"
tar -C "$root" --exclude=./build --exclude=./.git -c . | tar -C "$copy" -x

make_packages() {
    use_ccache
    cd "$copy" && DEB_BUILD_OPTIONS=noautodbgsym dpkg-buildpackage --build=binary --unsigned-source --unsigned-changes
}
say "making packages"
logged package make_packages
rm -f "$folder"/liborvrtf*.deb "$folder"/orvrtf*.deb
mv -t "$folder" "$root"/build/package/*.deb
rm -r "$copy"
printf '%s\n' "$folder"/*.deb
