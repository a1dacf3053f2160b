#!/bin/sh
# Builds two programs of this directory with the library in PREFIX, without CMake, and runs them.
#
#   without-cmake.sh pkg-config|qmake WORK

set -eu
sources=$(dirname "$(readlink -f "$0")")
rm -rf "$2"
mkdir -p "$2"
cd "$2"
export PKG_CONFIG_PATH="$PREFIX/lib/pkgconfig"
for program in defaultpictures rejectedcall; do
    if [ "$1" = pkg-config ]; then
        "$RCC" -o pictures.cpp "$(pkg-config --variable=pictures libwidget)"
        "$CXX" "$STANDARD" -fPIC -o $program "$sources/$program.cpp" pictures.cpp \
            $(pkg-config --cflags --libs libwidget-desktop-platform)
    else
        cat > $program.pro << EOT
SOURCES = $sources/$program.cpp
CONFIG += libwidget_desktop_platform libwidget_default_pictures
include($PREFIX/lib/libwidget/libwidget.pri)
EOT
        # With another compiler in the environment as well, qmake does not understand what it says.
        env -u CXX "$QMAKE" $program.pro QMAKE_CXX="$CXX" QMAKE_LINK="$CXX" \
            QMAKE_CXXFLAGS+="$STANDARD"
        make
    fi
    LD_LIBRARY_PATH=$([ "$1" = qmake ] || echo "$PREFIX/lib") ./$program 2>&1
done
