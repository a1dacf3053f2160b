#!/usr/bin/env bash
# A Debian system in a directory, for packages to be installed in: with nothing but what every system has, and from
# where this one has its packages. It needs root.
#
#   system.sh WORK make                    makes it, without packages from elsewhere
#   system.sh WORK prepare PACKAGE...      installs what these packages, files or names, need and are not themselves
#   system.sh WORK install PACKAGE...      installs the files, with nothing from elsewhere
#   system.sh WORK run COMMAND...          runs a command in it
#   system.sh WORK purge                   removes the packages of ours, and fails if something of them stays
#   system.sh WORK remove                  removes the system
#
# What has been fetched and unpacked is kept in WORK for the next time, for a week. Whatever runs in the system does so
# in namespaces of its own: when it ends, in whichever way, no process and no mount of it is left.

set -eu -o pipefail
work=$(realpath -m "$1")
action=$2
shift 2
release=bookworm
system=$work/system
export PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8

# Prints "<address> <release>" for each place where this machine has packages of the release from.
places()
{
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' \
        | awk -v release="$release" '$3 == "main" && $2 ~ "^" release "(-updates|-security)?$" { print $1, $2 }' | sort -u
}

# Runs a command in namespaces of its own, where it ends with this script, in whichever way that does.
apart() { setpriv --pdeathsig KILL unshare --mount --pid --fork --kill-child "$@"; }

# Runs a command in the system.
run()
{
    apart sh -eu -c '
        mount -t proc proc "$0/proc"
        mount -t tmpfs tmpfs "$0/dev/shm"
        mount --bind "$1" "$0/var/cache/apt/archives"
        root=$0
        shift
        exec env -i HOME=/root PATH="$PATH" LC_ALL="$LC_ALL" DEBIAN_FRONTEND="$DEBIAN_FRONTEND" chroot "$root" "$@"
        ' "$system" "$work/archives" "$@" < /dev/null
}

apt_get() { run apt-get -q -y --no-install-recommends -o Dpkg::Options::=--force-unsafe-io "$@"; }

# Has the system start from what is in a file of ours.
unpack()
{
    rm -rf "$system"
    mkdir -p "$system"
    tar -C "$system" --numeric-owner -xf "$1"
    touch "$1"
}

pack()
{
    tar -C "$system" --numeric-owner --exclude='./var/cache/apt/archives/*' --exclude='./packages/*' -cf "$1.new" .
    mv "$1.new" "$1"
}

make_system()
{
    local mirror
    mkdir -p "$work/archives/partial"
    find "$work" -maxdepth 1 -name '*.tar' -mtime +7 -delete
    if [ ! -f "$work/base.tar" ]; then
        mirror=$(places | awk -v release="$release" '$2 == release { print $1; exit }')
        if [ -z "$mirror" ]; then
            echo "This machine has no packages of $release from anywhere." >&2
            return 1
        fi
        rm -rf "$system"
        apart --mount-proc debootstrap --variant=minbase "$release" "$system" "$mirror"
        places | sed 's/^/deb /; s/$/ main/' > "$system/etc/apt/sources.list"
        apt-config dump | grep -i '^Acquire::.*proxy' > "$system/etc/apt/apt.conf.d/proxy" || true
        cp -L /etc/resolv.conf "$system/etc/resolv.conf"
        apt_get update
        pack "$work/base.tar"
    fi
    unpack "$work/base.tar"
}

# Puts the files among the arguments into the system, and prints the arguments as they are called there.
bring()
{
    local package
    mkdir -p "$system/packages"
    for package; do
        if [ -f "$package" ]; then
            cp "$package" "$system/packages"
            package=/packages/${package##*/}
        fi
        echo "$package"
    done
}

prepare()
{
    local wanted needed cached
    mapfile -t wanted < <(bring "$@")
    mapfile -t needed < <(apt_get -s install "${wanted[@]}" \
        | sed -nE '/^Inst libwidget/!s/^Inst ([^ ]+) (\[[^]]*\] )?\(([^ ]+) .*/\1=\3/p' | sort)
    cached=$work/$(printf '%s\n' "${needed[@]}" | sha256sum | cut -c1-16).tar
    if [ -f "$cached" ]; then
        unpack "$cached"
    else
        apt_get install "${needed[@]}"
        pack "$cached"
    fi
}

# What there is, but for what apt and dpkg keep of what they have done.
list_files()
{
    (cd "$system" && find . -path ./var/lib/dpkg -prune -o -path ./var/cache -prune -o -path ./var/log -prune \
        -o -path ./tmp -prune -o -path ./packages -prune -o -path ./proc -prune -o -print | sort)
}

install_files()
{
    local wanted
    list_files > "$work/files-before"
    mapfile -t wanted < <(bring "$@")
    run dpkg --force-unsafe-io -i "${wanted[@]}"
    list_files > "$work/files-with"
    if cmp -s "$work/files-before" "$work/files-with"; then
        echo "The packages hold nothing." >&2
        return 1
    fi
}

purge()
{
    local ours
    mapfile -t ours < <(run dpkg-query -W -f '${Package}\n' 'libwidget*')
    run dpkg --purge "${ours[@]}"
    list_files | diff "$work/files-before" - >&2
    ! grep -H libwidget "$system/var/lib/dpkg/status" >&2
    [ -z "$(find "$system/var/lib/dpkg/info" -name 'libwidget*')" ]
}

if [ "$(id -u)" -ne 0 ]; then
    echo "A system to install packages in needs root." >&2
    exit 1
fi
case $action in
make) make_system ;;
prepare) prepare "$@" ;;
install) install_files "$@" ;;
run) run "$@" ;;
purge) purge ;;
remove) rm -rf "$system" ;;
esac
