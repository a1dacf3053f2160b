#!/usr/bin/env bash
# Runs a program of Qt 4.8, embedded, on the toolkit's VNC screen of 220 by 176 pixels, and removes what it leaves behind:
# the shared memory of a program that was killed stands in the way of the next one.
#
#   tests/anytoolkit/vnc.sh <program> <argument>...
#
# While it runs, a viewer can look at it on the display that is printed first. There is no password.

set -u
if [ $# -eq 0 ]; then
    sed -n '2,/^$/s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
    exit 2
fi

# With every font of the system, starting takes long, and texts are in any of them.
fonts=$(mktemp -d) || exit 1
for face in DejaVuSans DejaVuSans-Bold; do
    file=$(find /usr/share/fonts /usr/local/share/fonts -name "$face.ttf" -print -quit 2> /dev/null)
    if [ -z "$file" ]; then
        echo "$0: There is no font $face.ttf (on Debian fonts-dejavu-core)." >&2
        rmdir "$fonts"
        exit 1
    fi
    ln -s "$file" "$fonts"
done

display=$((1 + $$ % 50000))
while [ -e "/tmp/qtembedded-$display" ]; do
    display=$((display + 1))
done

program=
running=
clean_up()
{
    trap '' INT TERM HUP
    if [ -n "$running" ]; then
        kill "$program"
        wait "$program"
    fi
    [ -z "$program" ] || remove_shared
    rm -rf "$fonts" "/tmp/qtembedded-$display"
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# Of all shared memory and semaphores those that the program has made.
remove_shared()
{
    local id
    for id in $(ipcs -mp | awk -v pid="$program" '$3 == pid { print $1 }'); do
        ipcrm -m "$id"
    done
    for id in $(ipcs -s | awk '$2 ~ /^[0-9]+$/ { print $2 }'); do
        # Who has made a semaphore is not told, only who was the last at it.
        ipcs -s -i "$id" 2> /dev/null | awk '{ print $5 }' | grep -qx "$program" && ipcrm -s "$id"
    done
}

echo "Display $display, TCP port $((5900 + display))"
# Without noDisablePainting nothing is painted before a viewer is there. Keys come from the tests alone.
QT_QWS_FONTDIR=$fonts QWS_KEYBOARD=none QWS_MOUSE_PROTO=none \
    "$1" -qws -display "VNC:noDisablePainting:size=220x176:$display" "${@:2}" < /dev/null &
program=$!
running=yes
wait "$program"
status=$?
running=
exit $status
