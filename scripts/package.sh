#!/usr/bin/env bash
# package.sh [FOLDER]: installs and builds what is missing, and makes the Debian packages in FOLDER, build/packages by
# default: libraries (liborvrtf1), what programs are built with (liborvrtf-dev), and the tool (orvrtf).

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

folder=${1:-$root/build/packages}

need_packages "${build_packages[@]}" "${package_packages[@]}"
build_preset package
mkdir -p "$folder"
# The whole output folder of cpack is taken over, so that no package of an older version stays.
made=$root/build/package/packages
rm -rf "$made"
logged package cpack --config "$root/build/package/CPackConfig.cmake" -G DEB -B "$made"
rm -f "$folder"/liborvrtf*.deb "$folder"/orvrtf*.deb
cp -t "$folder" "$made"/*.deb
printf '%s\n' "$folder"/*.deb
