#!/bin/sh
# Works an installed simulator without a display, as its man page says.
#
#   simulator.sh NAME

set -eux
simulator=$1
cd "$(mktemp -d)"
$simulator --list-screens | grep '^home '
$simulator --tour pictures
[ "$(find pictures -name '*.png' | wc -l)" -gt 20 ]
# The toolkit finds the plug-in by itself.
QT_DEBUG_PLUGINS=1 $simulator --picture home.png 2> said
grep -E 'loaded library.*libwidgetpicturecache.so|libwidgetpicturecache.so" loaded library' said
zcat "/usr/share/man/man1/$simulator.1.gz" | grep -- 'list.*screens'
