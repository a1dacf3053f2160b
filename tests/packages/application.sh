#!/bin/bash
# Builds the first screen against installed packages as their README.md says, with CMake, pkg-config and qmake, for a PC
# and for a board, and starts it; then an example, and a form of Qt Designer in each way to use one.
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

make_with_qmake()
{
    if [ "$qt" = 6 ]; then qmake6; else qmake; fi
    make
}

# build WAY: in its directory, which has main.cpp and what the way needs.
build()
{
    (
        cd "$1"
        case $1 in
        *cmake)
            cmake -S . -B build -G Ninja
            cmake --build build
            ln -s build/volume
            ;;
        *pkg-config)
            sh -eux build.sh
            ;;
        *qmake)
            make_with_qmake
            ;;
        esac
        keeps_running ./volume
    )
}

set -x
cd "$(mktemp -d)"
mkdir cmake pkg-config qmake
block 'A first screen' cmake 1 > cmake/CMakeLists.txt
block Packages sh 2 > pkg-config/build.sh
block Packages qmake 1 > qmake/volume.pro
block 'On a board' cpp 1 > keys
[ -s keys ]
for way in cmake pkg-config qmake; do
    block 'A first screen' cpp 1 > "$way/main.cpp"
    [ -s "$way/main.cpp" ]
    cp -R "$way" "board-$way"
    sed -i 's/\(libwidget[-_]\|COMPONENTS \)desktop\([-_]platform\)/\1linux\2/; s/widget-desktop-platform/widget-linux-platform/' \
        "board-$way"/[!m]*
    grep -q 'linux[-_]platform' "board-$way"/[!m]*
    sed -i -e '1i #include "platform/linux/boardkeys.h"' -e '/QApplication application(/{r keys' -e 'd}' "board-$way/main.cpp"
    build "$way"
    build "board-$way"
done

cp -R /usr/share/doc/libwidget-doc/examples .
[ "$qt" = 5 ] || sed -i 's/find_package(libwidget /find_package(libwidget-qt6 /' examples/*/CMakeLists.txt
for example in clock designerform; do
    cmake -S "examples/$example" -B "built/$example" -G Ninja
    cmake --build "built/$example"
done
keeps_running built/clock/clock
keeps_running built/designerform/designerform
keeps_running built/designerform/compiledform

mkdir form
cp examples/designerform/compiledform.cpp examples/designerform/alarm.ui form
cd form
cat > form.pro << 'END'
SOURCES = compiledform.cpp
FORMS = alarm.ui
CONFIG += libwidget libwidget_desktop_platform libwidget_default_pictures libwidget_forms
END
make_with_qmake
keeps_running ./form

[ -s "/usr/share/libwidget$([ "$qt" = 6 ] && echo -qt6)/board.conf" ]
