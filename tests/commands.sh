#!/usr/bin/env bash
# ./simulate and ./check under bad conditions: in trees that were moved or may only be read, without root, with words
# that they do not know. They run in a small tree, in which the simulator is a copy of the shell. And tests/alone.sh,
# with a test program that is a script.
#
#   tests/commands.sh                 every test, each in a tree of its own
#   tests/commands.sh --list          the names of the tests
#   tests/commands.sh <test>...       some tests only

set -u
root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")
unset WIDGET_BUILD_DIR

# --- What the tests use

# The tree is made by whoever runs the tests; "as_user" is someone who may only read it.
make_tree()
{
    work=$(mktemp -d)
    trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT
    chmod 755 "$work"
    tree="$work/a tree"
    mkdir -p "$tree/cmake" "$work/bin"
    cp "$root/simulate" "$root/check" "$tree"
    cp "$root"/cmake/*.sh "$tree/cmake"
    cp "$(command -v bash)" "$tree/program"
    cat > "$tree/CMakeLists.txt" << 'END'
cmake_minimum_required(VERSION 3.16)
project(libwidget LANGUAGES NONE)
set(simulator ${CMAKE_BINARY_DIR}/bin/simulator)
add_custom_command(OUTPUT ${simulator} DEPENDS ${CMAKE_SOURCE_DIR}/program
    COMMAND ${CMAKE_COMMAND} -E make_directory bin
    COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/program ${simulator})
add_custom_target(simulator DEPENDS ${simulator})
add_custom_target(cxx98-guard COMMAND ${CMAKE_COMMAND} -E echo read)
END
    # Every package is there.
    command_for_tests dpkg-query 'for name; do echo "<$name installed>"; done'
    PATH=$work/bin:$PATH
    cd "$tree" || exit 1
}

# command_for_tests <name> <script>: puts a command in the place of the system's.
command_for_tests()
{
    printf '#!/bin/bash\n%s\n' "$2" > "$work/bin/$1"
    chmod +x "$work/bin/$1"
}

as_user()
{
    if [ "$(id -u)" -eq 0 ]; then
        setpriv --reuid=65534 --regid=65534 --clear-groups "$@"
    else
        chmod -R a-w "$tree"
        "$@"
    fi
}

# Runs a command and keeps its status and all that it prints.
run()
{
    said=$("$@" 2>&1 < /dev/null)
    status=$?
}

die()
{
    printf '%s\n' "$*" "status: $status" "said: $said" >&2
    exit 1
}

expect_status() { [ "$status" -eq "$1" ] || die "The status is not $1."; }
expect_said() { [[ $said == *"$1"* ]] || die "It does not say: $1"; }
expect_not_said() { [[ $said != *"$1"* ]] || die "It should not say: $1"; }
expect_no_file() { [ ! -e "$1" ] || die "There should be no $1."; }
change_program() { echo >> program; }


# --- The tests

test_simulate_builds_and_starts()
{
    run ./simulate -c 'echo "started with $*"; exit 3' x one two
    expect_status 3
    expect_said "for the first time"
    expect_said "started with one two"
    run ./simulate -c 'echo "$0"'
    [ "$said" = ./simulate ] || die "It should say what was typed."
}

test_simulate_builds_what_has_changed()
{
    run ./simulate -c true
    change_program
    run ./simulate -c true
    expect_status 0
    expect_said "Building the simulator 100%"
    cmp program build/simulator/bin/simulator || die "The build is old."
}

test_simulate_writes_nothing_when_up_to_date()
{
    run ./simulate -c true
    touch "$work/then"
    sleep 0.1
    run ./simulate -c 'echo started'
    [ "$said" = started ] || die "It should just start."
    run find "$tree" -newer "$work/then"
    [ -z "$said" ] || die "It has written."
}

test_simulate_starts_from_a_tree_that_may_only_be_read()
{
    run ./simulate -c true
    run as_user ./simulate -c 'echo started'
    expect_status 0
    [ "$said" = started ] || die "It should just start."
}

test_simulate_tells_that_it_may_not_build()
{
    run ./simulate -c true
    change_program
    run as_user ./simulate -c 'echo started'
    expect_status 1
    expect_said "$tree/build/simulator"
    expect_said "WIDGET_BUILD_DIR=~/widget-build ./simulate"
    expect_not_said "[1/1]"
    expect_not_said "Permission denied"
    expect_not_said "started"
}

test_simulate_tells_that_it_may_not_build_for_the_first_time()
{
    run as_user ./simulate -c 'echo started'
    expect_status 1
    expect_said "$tree/build"
    expect_said "WIDGET_BUILD_DIR=~/widget-build ./simulate"
    expect_not_said "CMake"
}

test_simulate_tells_that_one_file_belongs_to_root()
{
    if [ "$(id -u)" -ne 0 ]; then
        echo "Skipped: only root makes files that belong to root."
        return
    fi
    run ./simulate -c true
    change_program
    chown -R 65534 .
    chown 0 build/simulator/.ninja_log
    run as_user ./simulate -c 'echo started'
    expect_status 1
    expect_said "$tree/build/simulator/.ninja_log"
}

test_simulate_builds_elsewhere()
{
    mkdir "$work/else where"
    chmod 777 "$work/else where"
    run as_user env WIDGET_BUILD_DIR="$work/else where" ./simulate -c 'echo started'
    expect_status 0
    expect_said "started"
    expect_no_file build
    run as_user env WIDGET_BUILD_DIR="$work/else where" ./simulate -c 'echo started'
    [ "$said" = started ] || die "It should just start."
}

test_simulate_takes_the_other_place_from_where_it_is_called()
{
    cd "$work" || exit 1
    run env WIDGET_BUILD_DIR=near "a tree/simulate" -c 'echo started'
    expect_status 0
    [ -x near/simulator/bin/simulator ] || die "It has built elsewhere."
    expect_no_file "$tree/build"
}

test_simulate_does_not_build_in_the_sources()
{
    mkdir simulator
    touch simulator/CMakeLists.txt
    run env WIDGET_BUILD_DIR=. ./simulate -c 'echo started'
    expect_status 1
    expect_said "sources"
    [ "$(ls simulator)" = CMakeLists.txt ] || die "It has written to the sources."
}

test_simulate_leaves_what_is_not_its_own()
{
    mkdir -p other/simulator
    echo "CMAKE_HOME_DIRECTORY:INTERNAL=/elsewhere" > other/simulator/CMakeCache.txt
    echo dear > other/simulator/file
    run env WIDGET_BUILD_DIR=other ./simulate -c true
    expect_status 1
    [ "$(cat other/simulator/file)" = dear ] || die "It has removed a file."
}

test_simulate_builds_anew_in_a_tree_that_was_moved()
{
    run ./simulate -c true
    mv "$tree" "$work/moved"
    cd "$work/moved" || exit 1
    run ./simulate -c 'echo started'
    expect_status 0
    expect_said "for the first time"
    expect_said "started"
}

test_simulate_builds_anew_in_a_tree_that_was_copied()
{
    run ./simulate -c true
    cp -a "$tree" "$work/copy"
    cd "$work/copy" || exit 1
    run ./simulate -c 'echo started'
    expect_status 0
    expect_said "for the first time"
    expect_said "started"
}

test_simulate_shows_the_step_that_failed()
{
    run ./simulate -c true
    echo 'message(FATAL_ERROR "no such luck")' >> CMakeLists.txt
    run ./simulate -c 'echo started'
    expect_status 1
    expect_said "no such luck"
    expect_said "Building the simulator failed"
    expect_not_said "started"
}

test_simulate_shows_the_step_that_failed_on_a_full_disk()
{
    mkdir "$work/disk"
    run unshare -m sh -c 'mount -t tmpfs -o size=200k tmpfs "$1"' sh "$work/disk"
    if [ $status -ne 0 ]; then
        echo "Skipped: a small disk cannot be mounted here."
        return
    fi
    run unshare -m sh -c 'mount -t tmpfs -o size=200k tmpfs "$1" && WIDGET_BUILD_DIR=$1 ./simulate -c "echo started"' \
        sh "$work/disk"
    expect_status 1
    expect_said "FAILED: bin/simulator"
    expect_said "Building the simulator failed"
    expect_not_said "started"
}

test_simulate_keeps_its_words_off_the_output()
{
    [ "$(./simulate -c 'echo started' 2> /dev/null < /dev/null)" = started ] || die "There is more on standard output."
}

# What ./simulate needs of the sources for a browser.
add_page()
{
    mkdir -p simulator/browser
    cp "$root"/simulator/browser/* simulator/browser
}

test_simulate_tells_what_is_wrong_with_a_port()
{
    local words
    add_page
    for words in "--browser abc" "--browser 0" "--browser 65536" "--browser=" "--screen clock --browser 80 --browser x"; do
        run ./simulate $words
        expect_status 2
        expect_said "./simulate: --browser: There is no port"
    done
    expect_no_file build
}

test_simulate_shows_no_pictures_in_a_browser()
{
    local words
    add_page
    for words in "--picture x.png --browser" "--browser --tour=x" "--browser 8080 --list-screens"; do
        run ./simulate $words
        expect_status 2
        expect_said "do not go together"
    done
    expect_no_file build
}

test_simulate_needs_more_packages_for_a_browser_only()
{
    add_page
    command_for_tests dpkg-query 'for name; do [ "$name" = novnc ] || echo "<$name installed>"; done'
    command_for_tests id 'echo 1000'
    run ./simulate -c 'echo started'
    expect_said "started"
    hide_sudo
    run ./simulate --browser -c 'echo started'
    expect_status 1
    expect_said "novnc: what the page is made of"
    expect_said "As root: apt-get install novnc"
    expect_not_said "started"
}

test_simulate_tells_of_the_browser_in_its_help()
{
    local words
    for words in --help "--browser --help"; do
        run ./simulate $words
        expect_status 0
        expect_said "GNU bash"
        expect_said "--browser [PORT]"
    done
}

test_check_knows_its_steps()
{
    run ./check --help
    expect_status 0
    expect_said "Steps: "
    expect_said "guard"
    expect_no_file build
}

test_check_rejects_an_unknown_step_at_once()
{
    local words
    command_for_tests dpkg-query 'echo asked'
    for words in nosuch "guard nosuch" "nosuch guard" "--nosuch"; do
        run ./check $words
        expect_status 2
        expect_said "nosuch"
        expect_said "guard qt5"
        expect_not_said "asked"
        expect_not_said "The library"
    done
    run ./check "guard qt5"
    expect_status 2
    run ./check ""
    expect_status 2
    expect_no_file build
}

test_check_runs_some_steps_only_when_asked()
{
    run ./check --help
    expect_said "Asked for by name only: alone"
    run ./check
    expect_said "== What runs on the device as C++98"
    expect_not_said "on a busy machine"
    expect_not_said "A million keys"
    run ./check alone
    expect_said "on a busy machine"
    expect_not_said "== What runs on the device as C++98"
}

test_check_runs_a_step()
{
    run ./check guard
    expect_status 0
    expect_said "2 passed, 0 failed"
}

test_check_runs_its_usual_steps_and_one_more()
{
    run ./check default alone
    expect_said "== What runs on the device as C++98"
    expect_said "on a busy machine"
}

test_check_shows_the_step_that_failed()
{
    run ./check guard
    echo 'message(FATAL_ERROR "no such luck")' >> CMakeLists.txt
    run ./check guard
    expect_status 1
    expect_said "no such luck"
    expect_said "0 passed, 1 failed"
}

test_check_builds_anew_in_a_tree_that_was_moved()
{
    run ./check guard
    mv "$tree" "$work/moved"
    cd "$work/moved" || exit 1
    run ./check guard
    expect_status 0
    expect_said "2 passed, 0 failed"
}

test_check_builds_anew_in_a_tree_that_was_copied()
{
    run ./check guard
    cp -a "$tree" "$work/copy"
    cd "$work/copy" || exit 1
    run ./check guard
    expect_status 0
    expect_said "2 passed, 0 failed"
}

test_check_tells_that_it_may_not_build()
{
    run as_user ./check guard
    expect_status 1
    expect_said "$tree/build"
    expect_said "WIDGET_BUILD_DIR=~/widget-build ./check"
    expect_not_said "log"
    expect_not_said "passed"
}

test_check_tells_that_it_may_not_build_where_another_has()
{
    run ./check guard
    run as_user ./check guard
    expect_status 1
    expect_said "$tree/build/check"
    expect_not_said "passed"
}

test_check_builds_elsewhere()
{
    mkdir "$work/else where"
    chmod 777 "$work/else where"
    run as_user env WIDGET_BUILD_DIR="$work/else where" ./check guard
    expect_status 0
    expect_said "2 passed, 0 failed"
    expect_no_file build
}

# make_qt4 <version> <define>: a directory that answers as a Qt of that version whose headers have the define.
make_qt4()
{
    mkdir -p "$work/qt4/bin" "$work/qt4/include/QtCore" "$work/qt4/include/QtTest"
    cat > "$work/qt4/bin/qmake" << END
#!/bin/bash
case \$2 in
QT_VERSION) echo $1 ;;
QT_INSTALL_HEADERS) echo "$work/qt4/include" ;;
esac
END
    chmod +x "$work/qt4/bin/qmake"
    echo "#define $2" > "$work/qt4/include/QtCore/qglobal.h"
}

test_check_tells_what_qt4_wants()
{
    local words
    command_for_tests dpkg-query 'echo asked'
    for words in qt4 "guard qt4" "--minutes 3 qt4"; do
        run ./check $words
        expect_status 2
        expect_said "./check: qt4 wants the directory where an embedded build of Qt 4.8 is installed: ./check qt4 PREFIX"
        expect_not_said "asked"
        expect_not_said "line "
    done
    run ./check qt4 ""
    expect_status 2
    expect_said "./check qt4 PREFIX"
    expect_no_file build
}

test_check_rejects_what_is_no_embedded_build_of_qt_4()
{
    run ./check qt4 "$work/no where"
    expect_status 2
    expect_said "./check: There is no directory \"$work/no where\". qt4 wants "

    mkdir "$work/empty"
    run ./check qt4 "$work/empty"
    expect_status 2
    expect_said "\"$work/empty\" has no bin/qmake that tells its version. qt4 wants "

    make_qt4 5.15.8 Q_WS_QWS
    run ./check qt4 "$work/qt4"
    expect_status 2
    expect_said "\"$work/qt4\" holds Qt 5.15.8. qt4 wants "

    make_qt4 4.8.7 Q_WS_X11
    run ./check qt4 "$work/qt4"
    expect_status 2
    expect_said "holds a Qt 4.8.7 that is not the embedded one. qt4 wants "

    rmdir "$work/qt4/include/QtTest"
    run ./check qt4 "$work/qt4"
    expect_status 2
    expect_said "holds a Qt 4.8.7 without QtTest. qt4 wants "

    mv "$work/qt4/include" "$work/elsewhere"
    run ./check qt4 "$work/qt4"
    expect_status 2
    expect_said "looks for its headers in \"$work/qt4/include\", where they are not. qt4 wants "
    expect_not_said "line "
    expect_no_file build
}

test_check_takes_an_embedded_build_of_qt_4()
{
    make_qt4 4.8.7 Q_WS_QWS
    echo 'message(STATUS "with ${QT_QMAKE_EXECUTABLE}")' >> CMakeLists.txt
    run ./check guard qt4 "$work/qt4"
    expect_said "What runs on the device as C++98"
    expect_said "Qt 4.8, embedded"
    run cat build/check/logs/configure--qt4-.log
    expect_said "with $work/qt4/bin/qmake"
}

# Makes a build with one test program and prints its directory. WORDS_FAIL names the run that fails.
make_test_build()
{
    mkdir -p "$work/tested/bin"
    # Another run of a program has its name and something behind it.
    printf '%s\n' 'add_test(tst_words "bin/tst_words")' 'add_test(tst_words-again "bin/tst_words")' \
        > "$work/tested/CTestTestfile.cmake"
    cat > "$work/tested/bin/tst_words" << 'END'
#!/bin/bash
[ "$*" != -functions ] || { printf '%s()\n' first second third; exit; }
[ "$*" != third ] || sleep "${WORDS_SLEEP:-0}"
echo "FAIL!  : $*"
[[ ${WORDS_FAIL:-none} != "$*" ]]
END
    chmod +x "$work/tested/bin/tst_words"
    echo "$work/tested"
}

test_alone_runs_every_function_and_all_of_a_program()
{
    run "$root/tests/alone.sh" "$(make_test_build)"
    expect_status 0
    for name in first second third; do
        expect_said "] tst_words $name
"
    done
    expect_said "4 passed, 0 failed"
    expect_not_said "FAIL"
}

test_alone_repeats_an_order()
{
    local once build
    build=$(make_test_build)
    run env WIDGET_SEED=7 "$root/tests/alone.sh" "$build"
    expect_said "WIDGET_SEED=7"
    once=$(grep -E 'tst_words .* ' <<< "$said" | sed 's/.*]//')
    run env WIDGET_SEED=7 "$root/tests/alone.sh" "$build"
    [ "$(grep -E 'tst_words .* ' <<< "$said" | sed 's/.*]//')" = "$once" ] || die "The order is another one."
}

test_alone_tells_what_fails()
{
    run env WORDS_FAIL=second "$root/tests/alone.sh" "$(make_test_build)"
    expect_status 1
    expect_said "FAILED, status 1: tst_words second"
    expect_said "FAIL!  : second"
    expect_said "3 passed, 1 failed"
}

test_alone_leaves_nothing_running()
{
    local pid signal left build
    build=$(make_test_build)
    for signal in INT TERM; do
        # A shell has what it starts in the background ignore Ctrl-C.
        WORDS_SLEEP=300 env --default-signal=INT setsid "$root/tests/alone.sh" "$build" \
            > "$work/$signal" 2>&1 < /dev/null &
        pid=$!
        until grep -qs '] tst_words' "$work/$signal"; do sleep 0.1; done
        [ "$(ps -o pid= --ppid "$pid" | wc -l)" -ge 9 ] || die "It does not load the machine."
        kill -s "$signal" "$pid"
        wait "$pid"
        left=$(ps -o stat=,args= --sid "$pid" | grep -v '^Z')
        [ -z "$left" ] || die "After SIG$signal there is still: $left"
    done
}

test_alone_needs_a_build()
{
    run "$root/tests/alone.sh"
    expect_status 2
    expect_said "tests/alone.sh <build directory>"
    run "$root/tests/alone.sh" "$work"
    expect_status 2
    run "$root/tests/alone.sh" "$(make_test_build)" tst_none
    expect_status 2
    expect_said "tst_none"
}

# Leaves only the commands that the scripts need, and no sudo.
hide_sudo()
{
    local name
    for name in basename bash cat chmod cmake cp dirname env find grep id mkdir mktemp ninja readlink realpath rm sed \
            sleep tr; do
        [ -e "$work/bin/$name" ] || ln -s "$(command -v "$name")" "$work/bin/$name"
    done
    PATH=$work/bin
}

test_missing_packages_are_told_where_nobody_can_install()
{
    local script
    command_for_tests dpkg-query 'echo "<cmake installed>"'
    command_for_tests id 'echo 1000'
    command_for_tests apt-get 'echo "asked to install"'
    hide_sudo
    for script in simulate check; do
        run "./$script"
        expect_status 1
        expect_said "g++: the compiler"
        expect_not_said "cmake: the build"
        expect_said "As root: apt-get install g++ "
        expect_not_said "about to be"
        expect_not_said "asked to install"
    done
    expect_no_file build
}

test_missing_packages_are_installed()
{
    command_for_tests dpkg-query 'echo "<cmake installed>"'
    command_for_tests id 'echo 0'
    command_for_tests apt-get 'echo "got: $*"; echo pmstatus:g++:40.0:Unpacking; echo pmstatus:g++:100.0:Set up'
    run ./simulate -c 'echo started'
    expect_status 0
    expect_said "g++: the compiler"
    expect_said "Installing them and what they need 70% 100%"
    expect_not_said "got:"
    expect_said "started"
}

test_missing_packages_are_installed_with_sudo()
{
    command_for_tests dpkg-query 'echo "<cmake installed>"'
    command_for_tests id 'echo 1000'
    command_for_tests sudo 'SUDO=yes "$@"'
    command_for_tests apt-get '[ "${SUDO:-}" = yes ] && echo pmstatus:g++:100.0:Set up'
    run ./simulate -c 'echo started'
    expect_status 0
    expect_said "100%"
    expect_said "started"
}

test_installing_that_failed_is_shown()
{
    command_for_tests dpkg-query 'echo "<cmake installed>"'
    command_for_tests id 'echo 0'
    command_for_tests apt-get 'echo "dlstatus:1:50.0:Retrieving"; echo "E: no such luck"; exit 100'
    run ./simulate -c 'echo started'
    expect_status 1
    expect_said "E: no such luck"
    expect_said "As root: apt-get install g++ "
    expect_not_said "dlstatus"
    expect_not_said "started"
}

# --- Running them

tests=$(compgen -A function test_ | sort)

case ${1:-} in
--list)
    sed 's/^test_//' <<< "$tests"
    exit
    ;;
'') set -- $(sed 's/^test_//' <<< "$tests") ;;
esac

failed=0
for name; do
    said= status=
    if ! declare -F "test_$name" > /dev/null; then
        echo "There is no test \"$name\". tests/commands.sh --list names them." >&2
        exit 2
    fi
    if (make_tree && "test_$name"); then
        echo "ok      ${name//_/ }"
    else
        echo "FAILED  ${name//_/ }"
        failed=$((failed + 1))
    fi
done
[ "$failed" -eq 0 ]
