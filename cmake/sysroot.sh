#!/usr/bin/env bash
# Fills a directory with what programs for a Debian board are built and run with here: the toolkit, ALSA, libevdev and
# fonts of this machine's own release of Debian, for the board's processor.
#
#   cmake/sysroot.sh PROCESSOR              armhf or arm64, in build/sysroot/PROCESSOR
#   cmake/sysroot.sh PROCESSOR DIRECTORY    the same somewhere else
#
# The packages come from where this machine has its own from, with a state of apt's that is not the system's, and are
# unpacked only. So nothing is installed here, and root is not needed. If the index of one of the archives does not
# arrive, the others will do: the packages have to agree with each other, not with those of this machine.
#
# What is complete stays as it is, until this machine's toolkit is another one. Ends with status 3 if the packages cannot
# be had, with 1 on any other failure.

set -eu -o pipefail
root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")

packages=(qtbase5-dev libasound2-dev libevdev-dev libc-bin fonts-dejavu-core fonts-dejavu-extra)

fail() { echo "sysroot.sh: $*" >&2; exit 1; }
cannot_be_had() { echo "sysroot.sh: $*" >&2; exit 3; }

case ${1-} in
armhf) triplet=arm-linux-gnueabihf ;;
arm64) triplet=aarch64-linux-gnu ;;
*) fail "Usage: cmake/sysroot.sh armhf|arm64 [DIRECTORY]" ;;
esac
processor=$1
sysroot=$(realpath -m -- "${2:-${WIDGET_BUILD_DIR:-$root/build}/sysroot/$processor}")
work=$sysroot.packages

[ -r /etc/os-release ] && . /etc/os-release
release=${VERSION_CODENAME-}
command -v apt-get dpkg-deb > /dev/null && [ "${ID-}" = debian ] && [ -n "$release" ] \
    || cannot_be_had "This is no Debian system, so it knows no packages for $processor."
# The tools of this machine's toolkit read the sources for that of the board.
qt_version() { sed 's/+dfsg.*//' <<< "$1"; }
tools_version=$(dpkg-query -W -f '${Version}' qtbase5-dev-tools 2> /dev/null) \
    || cannot_be_had "The tools of the toolkit are missing here (Debian: qtbase5-dev-tools)."

content="${packages[*]} for $release and Qt $(qt_version "$tools_version"), in $sysroot"
if [ "$(cat "$sysroot/content" 2> /dev/null)" = "$content" ]; then
    echo "$sysroot is complete."
    exit
fi

# Prints "deb <address> <release> main" for each place where this machine has packages of its release from.
places()
{
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' \
        | awk -v release="$release" '$3 == "main" && $2 ~ "^" release "(-updates|-security)?$" { print "deb", $0 }' | sort -u
}

# A state of apt's with nothing installed, for the one processor, with the ways of this machine to reach its archives.
make_state()
{
    mkdir -p "$work/lists/partial" "$work/archives/partial"
    : > "$work/status"
    places > "$work/sources.list"
    [ -s "$work/sources.list" ] || cannot_be_had "This machine has no packages of $release from anywhere."
    {
        apt-config dump | grep '^Acquire::' | grep -v '^Acquire::IndexTargets'
        cat << END
APT::Architecture "$processor";
APT::Architectures { "$processor"; };
APT::Install-Recommends "false";
APT::Sandbox::User "$(id -un)";
Debug::NoLocking "true";
Dir::State "$work";
Dir::State::lists "$work/lists";
Dir::State::status "$work/status";
Dir::Cache "$work";
Dir::Cache::archives "$work/archives";
Dir::Etc::sourcelist "$work/sources.list";
Dir::Etc::sourceparts "/dev/null";
Dir::Etc::main "/dev/null";
Dir::Etc::parts "/dev/null";
END
    } > "$work/apt.conf"
    export APT_CONFIG=$work/apt.conf
}

# Leaves the packages in archives/.
fetch()
{
    local version
    # Even if not all indices arrive.
    apt-get -q update || true
    version=$(apt-cache policy qtbase5-dev | sed -n 's/^ *Candidate: //p')
    [ -n "$version" ] || cannot_be_had "There are no packages for $processor to be had: their index did not arrive."
    [ "$(qt_version "$version")" = "$(qt_version "$tools_version")" ] \
        || cannot_be_had "The toolkit for $processor is $version, but its tools here are $tools_version."
    apt-get -q -y --download-only install "${packages[@]}" || cannot_be_had "Not all packages for $processor arrived."
}

# A link to what is in the board's system leads there from outside of it, too.
relate_links()
{
    local link target
    find "$sysroot" -type l -lname '/*' -printf '%p\t%l\n' | while IFS=$'\t' read -r link target; do
        ln -sfn "$(realpath -ms --relative-to="$(dirname "$link")" "$sysroot$target")" "$link"
    done
}

unpack()
{
    local package
    rm -rf "$sysroot"
    mkdir -p "$sysroot"
    for package in "$work/archives"/*.deb; do
        dpkg-deb --extract "$package" "$sysroot"
    done
    # Emulated programs find files there first, and are to find those of this machine in all other directories.
    find "$sysroot" -mindepth 1 -maxdepth 1 ! -name usr ! -name lib ! -name etc -exec rm -rf {} +
    rm -rf "$sysroot"/usr/share/{doc,man,locale,lintian}
    # What is linked there, packages settle when they are installed. Without it, it is as on this machine.
    rm -rf "$sysroot/etc/fonts"
    relate_links
}

# The toolkit of the board is built with by the tools of this machine, which run here.
take_own_tools()
{
    rm -rf "$sysroot/usr/lib/qt5/bin"
    ln -s /usr/lib/qt5/bin "$sysroot/usr/lib/qt5/bin"
    sed -i "s|/usr/lib/$triplet/qt5/qt.conf|$sysroot&|" "$sysroot/usr/bin/$triplet-qmake"
}

make_state
fetch
unpack
take_own_tools
echo "$content" > "$sysroot/content"
rm -rf "$work"
