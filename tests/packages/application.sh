#!/bin/bash
# Builds the first screen against installed packages as their README.md says, with CMake, pkg-config and qmake, and
# starts it.
#
#   application.sh QT

set -eu
qt=$1
readme=/usr/share/doc/libwidget-doc/README.md
export QT_QPA_PLATFORM=offscreen

# block SECTION LANGUAGE N: the Nth block of the section in the language, with the names for the toolkit.
block()
{
    awk -v section="## $1" -v fence="\`\`\`$2" -v wanted="$3" '
        /^## / { here = $0 == section }
        !here { next }
        $0 == "```" { inside = 0 }
        inside
        $0 == fence && ++count == wanted { inside = 1 }
    ' "$readme" | if [ "$qt" = 6 ]; then
        sed -e 's/find_package(libwidget /find_package(libwidget-qt6 /' -e 's|^rcc |/usr/lib/qt6/libexec/rcc |' \
            -e 's/=pictures libwidget/&-qt6/' -e 's/libwidget-desktop-platform)/libwidget-desktop-platform-qt6)/'
    else
        cat
    fi
}

keeps_running()
{
    ldd "$1" | grep -F "/libwidget$([ "$qt" = 6 ] && echo -qt6).so.1 "
    status=0
    timeout 3 "$1" || status=$?
    [ "$status" -eq 124 ]
}

set -x
cd "$(mktemp -d)"
mkdir cmake pkg-config qmake
for way in cmake pkg-config qmake; do
    block 'A first screen' cpp 1 > "$way/main.cpp"
    [ -s "$way/main.cpp" ]
done

cd cmake
block 'A first screen' cmake 1 > CMakeLists.txt
cmake -S . -B build -G Ninja
cmake --build build
keeps_running build/volume

cd ../pkg-config
block Packages sh 2 > build.sh
sh -eux build.sh
keeps_running ./volume

cd ../qmake
block Packages qmake 1 > volume.pro
if [ "$qt" = 6 ]; then qmake6; else qmake; fi
make
keeps_running ./volume
