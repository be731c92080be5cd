#!/usr/bin/env bash
# external.sh: installs and builds what is missing, installs the three platform libraries in build/platform/installed,
# builds the library against them as against those of an application, and runs the quick tests.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages "${build_packages[@]}" "${test_packages[@]}"
rm -rf "$root/build/platform/installed"
build_preset platform platform/install
build_preset external

used=$(ldd "$root/build/external/lib/libOrvRtf.so" | grep -oE '/.*/libOrv(Base|Core|Gui)\.so' | sort)
expected=$(find "$root/build/platform/installed" -name 'libOrv*.so' | sort)
[[ -n $expected && $used == "$expected" ]] || fail "the library uses other platform libraries: $used"
test_preset external
