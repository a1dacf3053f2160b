# Sourced by the scripts at the root: where they build, and a sign of life while something takes long.

# What show_progress reads.
export NINJA_STATUS='[%f/%t] '

# build_place <root> <name>: prints where to build <name>: below build/ of the tree, or below WIDGET_BUILD_DIR.
build_place()
{
    realpath -m -- "${WIDGET_BUILD_DIR:-$1/build}/$2"
}

# need_writable <command> <directory>: makes the directory. Unless all of it can be written, says so and what to do.
#
# Root, and sudo, build in the same place as everyone else: another place or another owner than that of what a command
# does would surprise more than this sentence does.
need_writable()
{
    local command=$1 directory=$2 reason obstacle
    if [ -e "$directory/CMakeLists.txt" ]; then
        echo "$command: \"$directory\" holds sources. Name another WIDGET_BUILD_DIR." >&2
        return 1
    fi
    if ! reason=$(mkdir -p "$directory" 2>&1); then
        echo "$command: something has to be built, and there is no place for it." >&2
        echo "$reason" >&2
    else
        obstacle=$(find "$directory" ! -type l ! -writable -print -quit 2> /dev/null)
        [ -z "$obstacle" ] && return
        echo "$command: something has to be built, but you may not write \"$obstacle\"." >&2
    fi
    echo "To build in a directory of your own: WIDGET_BUILD_DIR=~/widget-build $command" >&2
    return 1
}

# is_made_for <root> <directory>: whether the build directory can be used for the tree, or for a part of it. One that
# was moved or copied, with its tree or without, cannot; nor can one whose making was interrupted.
is_made_for()
{
    local root=$1 directory=$2 home place
    [ -f "$directory/build.ninja" ] && [ -f "$directory/CMakeCache.txt" ] || return
    home=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$directory/CMakeCache.txt")
    place=$(sed -n 's/^CMAKE_CACHEFILE_DIR:INTERNAL=//p' "$directory/CMakeCache.txt")
    [ "$place" = "$directory" ] && [[ $home/ == "$root"/* ]]
}

# discard_unusable <root> <directory>...: removes the build directories of ours that cannot be used for the tree.
discard_unusable()
{
    local root=$1 directory
    shift
    for directory; do
        if grep -qsE '^(WIDGET_QT|libwidget_DIR):' "$directory/CMakeCache.txt" && ! is_made_for "$root" "$directory"; then
            rm -rf "$directory"
        fi
    done
}

# run_logged <log> <label> <command>...: runs a command, which may be one of cmake or apt-get, with all that it prints
# going to the log. Shows the label meanwhile, and how far the command is: on a terminal as a number that counts up,
# elsewhere every tenth.
run_logged()
{
    local log=$1 label=$2
    shift 2
    printf '%s' "$label"
    "$@" 2>&1 < /dev/null | show_progress "$label" 3>&1 > "$log"
    return "${PIPESTATUS[0]}"
}

# Passes on what ninja and apt-get print, and shows on descriptor 3 how far they are.
show_progress()
{
    local label=$1 line percent shown=0
    while IFS= read -r line || [ -n "$line" ]; do
        percent=0
        if [[ $line =~ ^\[([0-9]+)/([1-9][0-9]*)\] ]]; then
            percent=$((100 * BASH_REMATCH[1] / BASH_REMATCH[2]))
        elif [[ $line =~ ^dlstatus:[^:]*:([0-9]+) ]]; then
            percent=$((BASH_REMATCH[1] / 2))
        elif [[ $line =~ ^pmstatus:[^:]*:([0-9]+) ]]; then
            percent=$((50 + BASH_REMATCH[1] / 2))
        fi
        # A line that the log does not take, as on a full disk, must not get lost.
        printf '%s\n' "$line" 2> /dev/null || printf '\n%s' "$line" >&2
        [ "$percent" -gt "$shown" ] || continue
        if [ -t 3 ]; then
            printf '\r%s%3d%%' "$label" "$percent" >&3
        elif [ $((percent / 10)) -gt $((shown / 10)) ]; then
            printf ' %d%%' $((percent / 10 * 10)) >&3
        fi
        shown=$percent
    done
}
