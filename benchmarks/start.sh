#!/usr/bin/env bash
# Prints what the library takes on the processor that a build is for: its size, the relocations that are made when it is
# loaded, and for the first screen of the README the instructions from the start of the program to the first picture, and
# the heap that is in use then. The same of an empty screen tells what of it is the toolkit's.
#
#   benchmarks/start.sh BUILD            a build with one of the toolchain files
#   benchmarks/start.sh BUILD PROGRAM... with other programs of the build as well
#
# Instructions are counted by QEMU, which logs each block of instructions when it is translated, with its instructions,
# and each time that it is run. The sum of both is exact, up to blocks that a signal or a fault breaks off. Kernel and
# display driver are not in it: the programs run on the toolkit's platform "offscreen".

set -u
export LC_ALL=C

fail() { echo "start.sh: $*" >&2; exit 1; }

[ $# -ge 1 ] || fail "Usage: benchmarks/start.sh BUILD [PROGRAM...]"
build=$(realpath -- "$1")
shift
cached() { sed -n "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt"; }
emulator=$(cached WIDGET_EMULATOR)
sysroot=$(cached WIDGET_SYSROOT)
[ -x "$emulator" ] && [ -d "$sysroot" ] || fail "$build was not made with a toolchain file and an emulator."
[ "$(cached CMAKE_BUILD_TYPE)" = Release ] || fail "$build is no Release build."
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT

# One folder of fonts, as on a board, and a cache of them that is not that of the user.
cat > "$work/fonts.conf" << END
<fontconfig>
    <dir>/usr/share/fonts/truetype/dejavu</dir>
    <cachedir>$work</cachedir>
</fontconfig>
END

# Starts a program of the build, in an environment that is the same everywhere; what is before it are options for QEMU.
start()
{
    env -i HOME="$work" LC_ALL=C.UTF-8 FONTCONFIG_FILE="$work/fonts.conf" QT_QPA_PLATFORM=offscreen QT_HASH_SEED=0 \
        QT_QPA_PLATFORM_PLUGIN_PATH="$(echo "$sysroot"/usr/lib/*/qt5/plugins/platforms)" \
        QT_QPA_GENERIC_PLUGINS=firstpicture QT_PLUGIN_PATH="$build/plugins" \
        "$emulator" -L "$sysroot" "${@:2}" "$build/bin/$1" 2> "$work/errors"
}

count_instructions()
{
    awk '
        /^IN:/ { begins = 1; length_of_block = 0; next }
        /^0x/ {
            if (begins) {
                block = $1
                gsub(/^0x0*|:$/, "", block)
                begins = 0
            }
            lengths[block] = ++length_of_block
            next
        }
        /^Trace/ {
            split($0, fields, "/")
            block = fields[2]
            sub(/^0*/, "", block)
            if (!(block in lengths))
                exit lost = 1
            total += lengths[block]
        }
        END { if (lost || total == 0) exit 1; printf "%.0f\n", total }'
}

# Prints the instructions and the heap of the start of a program.
measure()
{
    local heap instructions
    # What the first start of all leaves for the others: the cache of the fonts.
    start "$1" > /dev/null && heap=$(start "$1") \
        && instructions=$(start "$1" -d nochain,exec,in_asm -D /proc/self/fd/3 3>&1 > /dev/null | count_instructions) \
        || { cat "$work/errors" >&2; fail "$1 cannot be measured."; }
    printf '  %-32s %6.1f million instructions, heap %5.0f kB\n' "$2" "$(awk "BEGIN { print $instructions / 1e6 }")" \
        "$(awk "BEGIN { print $heap / 1000 }")"
}

library=$build/lib/libwidget.so
"$(cached CMAKE_STRIP)" -o "$work/library" "$library" || exit 1
relocations=$("$(cached CMAKE_READELF)" --relocs --wide "$library" | grep -E '^[0-9a-f]{8,16} ') || exit 1
count() { grep -cE "$1" <<< "$relocations"; }
printf '  %-32s %6.1f kB stripped\n' "the library" "$(awk "BEGIN { print $(stat -c %s "$work/library") / 1000 }")"
printf '  %-32s %6d: %d add an address, %d look up a name, %d do so at a first call\n' "relocations" \
    "$(count .)" "$(count _RELATIVE)" "$(count '_ABS|_GLOB_DAT|_COPY')" "$(count _JUMP_SLOT)"
measure start-empty-screen "an empty screen"
measure start-first-screen "the first screen"
for program; do
    measure "$program" "$program"
done
