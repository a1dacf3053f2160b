# Sourced by ./check: whether a directory holds what its step qt4 is about.

# need_qt4 <command> <directory>: whether an embedded build of Qt 4.8 is installed there. Otherwise says what is wrong.
need_qt4()
{
    local command=$1 directory=$2 flaw=
    if [ -n "$directory" ]; then
        flaw=$(qt4_flaw "$directory")
        [ -n "$flaw" ] || return 0
    fi
    echo "$command: ${flaw:+$flaw }qt4 wants the directory where an embedded build of Qt 4.8 is installed:" \
        "$command qt4 PREFIX" >&2
    return 1
}

# Prints what is wrong with a directory, as a sentence; nothing if it will do.
qt4_flaw()
{
    local directory=$1 version headers
    if [ ! -d "$directory" ]; then
        echo "There is no directory \"$directory\"."
    elif ! version=$("$directory/bin/qmake" -query QT_VERSION 2> /dev/null); then
        echo "\"$directory\" has no bin/qmake that tells its version."
    elif [[ $version != 4.8.* ]]; then
        echo "\"$directory\" holds Qt $version."
    elif ! headers=$("$directory/bin/qmake" -query QT_INSTALL_HEADERS) || [ ! -f "$headers/QtCore/qglobal.h" ]; then
        echo "\"$directory\" holds a Qt $version that looks for its headers in \"$headers\", where they are not."
    elif [ ! -d "$headers/QtTest" ]; then
        echo "\"$directory\" holds a Qt $version without QtTest."
    elif [ "$(qt4_window_system "$headers")" = another ]; then
        echo "\"$directory\" holds a Qt $version that is not the embedded one."
    fi
}

# What the headers say, in one word. Where they cannot be read at all, the build will tell.
qt4_window_system()
{
    printf '%s\n' '#include <QtCore/qglobal.h>' '#ifdef Q_WS_QWS' own '#else' another '#endif' \
        | g++ -std=gnu++98 -E -P -x c++ -I "$1" - 2> /dev/null | tail -n 1
}
