#!/usr/bin/env bash
# bare.sh convert|test: runs one of the two commands of README.md in a bare Debian 12 with nothing but git, so that
# whatever a script forgets to install is missed. The commit that is checked out is cloned, not what differs from it.
# Exits with 77 where there is no root, or no Debian 12 whose configuration of apt can be copied.
#
# Between runs $ORVRTF_CACHE, build/cache by default, keeps the bare system, the packages that apt has downloaded, and
# what ccache has compiled.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

declare -A commands=(
    [convert]="scripts/convert.sh tests/data/pandoc-links.rtf out.html && grep -qF 'The Patient Corridor' out.html"
    [test]="scripts/test.sh"
)
command=${commands[${1:-none}]:-}
[[ -n $command ]] || fail "usage: bare.sh convert|test"

# skip REASON: there is no making a bare system here.
skip() {
    say "cannot make a bare system: $*"
    exit 77
}

grep -qsx 'VERSION_CODENAME=bookworm' /etc/os-release || skip "this is not Debian 12"
[[ $(id -u) == 0 ]] || skip "this takes root"
unshare --mount --pid --fork true 2>/dev/null || skip "mounting is not allowed"

need_packages git mmdebstrap

# All by which apt finds packages on this system and trusts them. What is copied of apt.conf.d is about
# transport; the rest may call programs that a bare system has not.
mapfile -t sources < <(find /etc/apt/sources.list /etc/apt/sources.list.d \
    -type f \( -name '*.list' -o -name '*.sources' \) -size +0 2>/dev/null | sort)
mapfile -t copied < <(find /etc/apt /usr/local/share/ca-certificates /usr/share/keyrings -type f \
    ! -path '/etc/apt/apt.conf*' ! -path '/etc/apt/sources.list*' 2>/dev/null | sort)
transport=$(apt-config dump | grep '^Acquire::' | grep -vE '^Acquire::(Changelogs|CompressionTypes|IndexTargets)')

# base_system FILE: makes the bare system as a tar file.
base_system() {
    local scratch
    scratch=$(mktemp -d)
    echo "$transport" >"$scratch/apt.conf"
    tar -C / -cf "$scratch/copied.tar" "${copied[@]#/}"
    # shellcheck disable=SC2016
    # dpkg need not survive a power failure here. Nothing in the tests reads an index of manual pages.
    mmdebstrap --format=tar --variant=minbase --include=git,ca-certificates --aptopt="$scratch/apt.conf" \
        --dpkgopt=force-unsafe-io \
        --setup-hook="tar -C \"\$1\" -xf $scratch/copied.tar" \
        --customize-hook='chroot "$1" update-ca-certificates' \
        --customize-hook='echo man-db man-db/auto-update boolean false | chroot "$1" debconf-set-selections' \
        bookworm "$1.new" "${sources[@]}"
    rm -r "$scratch"
    mv "$1.new" "$1"
}

cache=${ORVRTF_CACHE:-$root/build/cache}
mkdir -p "$cache/archives/partial" "$cache/ccache"
# Packages and systems out of date take longer to be brought up to date than to be fetched anew.
find "$cache" -maxdepth 2 \( -name '*.deb' -o -name 'bookworm-*.tar' \) -ctime +30 -delete
version=$({ declare -f base_system && echo "$transport" && cat "${sources[@]}" "${copied[@]}"; } | sha256sum)
base=$cache/bookworm-${version:0:16}.tar
if [[ ! -f $base ]]; then
    say "making the bare system"
    rm -f "$cache"/bookworm-*.tar*
    logged bare-base base_system "$base"
fi

bare=$(mktemp -d "$cache/bare.XXXXXX")
inside=
# Its mounts end with the process in the bare system.
clean_up() {
    [[ -z $inside ]] || kill -KILL "$inside" 2>/dev/null || true
    wait
    rm -rf --one-file-system "$bare"
}
trap clean_up EXIT
trap 'exit 130' HUP INT TERM
tar -C "$bare" -xf "$base"
cp -L /etc/resolv.conf /etc/hosts "$bare/etc/"
git -c advice.detachedHead=false clone --quiet --depth 1 "file://$root" "$bare/root/orvrtf"

# enter COMMAND: runs COMMAND in the bare system, in a namespace of mounts and processes that ends with it.
enter() {
    mount -t proc proc "$bare/proc"
    mount --rbind /dev "$bare/dev"
    mount --rbind /sys "$bare/sys"
    mkdir -p "$bare/root/.cache/ccache"
    mount --bind "$cache/ccache" "$bare/root/.cache/ccache"
    mount --bind "$cache/archives" "$bare/var/cache/apt/archives"
    exec chroot "$bare" env -i HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
        bash -euc "cd ~/orvrtf && $1"
}
export -f enter
export bare cache

say "running in the bare system: $command"
unshare --mount --pid --fork --kill-child bash -euc "enter \"\$1\"" enter "$command" </dev/null &
inside=$!
status=0
wait "$inside" || status=$?
inside=
if ((status != 0)); then
    rm -rf "$logs/bare"
    cp -r "$bare/root/orvrtf/build/logs" "$logs/bare" 2>/dev/null || true
    fail "$1 failed in the bare system; its logs are in $logs/bare"
fi
say "$1 passed in the bare system after $SECONDS s"
