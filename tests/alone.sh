#!/usr/bin/env bash
# Runs every test function of a build in a process of its own, in random order and with busy loops beside it, and every
# program once with its functions in random order in one process. What passes only after another function, or only on
# a machine that has time for it, fails here.
#
#   tests/alone.sh <build directory>                 every program
#   tests/alone.sh <build directory> <program>...    some programs only
#
# The order follows from a number that is printed; WIDGET_SEED sets it. Ends with one line "N passed, N failed".

set -u
busy_loops=8
at_once=$((2 * $(nproc)))
longest=1800  # seconds for one process, for those that never end

if [ $# -eq 0 ] || [ ! -f "$1/CTestTestfile.cmake" ]; then
    sed -n '2,/^$/s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
    exit 2
fi
build=$(readlink -f "$1")
shift
seed=${WIDGET_SEED:-$((SRANDOM % 100000))}

export QT_QPA_PLATFORM=offscreen QT_FONT_DPI=96 LC_ALL=C.UTF-8
export QTEST_FUNCTION_TIMEOUT=$((longest * 1000))

# --- What has to end with the script

# A program is started by "timeout", which passes the end on to all that the program has started.
declare -A running=()
loops=()
logs=$(mktemp -d)

clean_up()
{
    trap '' INT TERM HUP
    kill "${loops[@]}" "${!running[@]}" 2> /dev/null
    wait
    rm -rf "$logs"
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# Ends by itself should nothing be left to end it.
busy_loop()
{
    local i
    trap - EXIT INT TERM HUP
    while kill -0 $$ 2> /dev/null; do
        for ((i = 0; i < 100000; i++)); do :; done
    done
}

# --- What is to be run

shuffled()
{
    awk -v seed="$1" 'BEGIN { srand(seed) } { printf "%.9f %s\n", rand(), $0 }' | sort | cut -d ' ' -f 2-
}

# The lines "program function..." of all runs: whole programs first, for they take long.
list_runs()
{
    local program functions number=$seed
    local -A functions_of=()
    for program; do
        functions=$("$build/bin/$program" -functions 2> /dev/null | sed -n 's/()$//p')
        if [ -z "$functions" ]; then
            echo "There is no test function in $build/bin/$program." >&2
            return 1
        fi
        functions_of[$program]=$functions
        number=$((number + 1))
        echo "$program" $(shuffled "$number" <<< "$functions")
    done
    for program; do
        sed "s/^/$program /" <<< "${functions_of[$program]}"
    done | shuffled "$seed"
}

[ $# -gt 0 ] || set -- $(ctest --test-dir "$build" -N | sed -nE 's/^ *Test +#[0-9]+: ([^-]*).*$/\1/p' | sort -u)
runs=$(list_runs "$@") || exit 2
mapfile -t runs <<< "$runs"

# --- Running it

echo "WIDGET_SEED=$seed, ${#runs[@]} runs, $at_once at once, with $busy_loops busy loops"
started=0
passed=0
failed=0

# Waits for one of the programs that run, and tells how it ended.
finish_one()
{
    local pid status run
    wait -n -p pid "${!running[@]}"
    status=$?
    run=${runs[running[$pid]]}
    echo "[$((passed + failed + 1))/${#runs[@]}] $run"
    if [ $status -eq 0 ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAILED, status $status: $run"
        grep -avE '^(PASS|INFO|\*{5,}|Config|   Loc: \[Unknown)' "$logs/${running[$pid]}"
    fi
    rm -f "$logs/${running[$pid]}"
    unset "running[$pid]"
}

for ((i = 0; i < busy_loops; i++)); do
    busy_loop &
    loops+=($!)
done
for ((i = 0; i < ${#runs[@]}; i++)); do
    [ ${#running[@]} -lt $at_once ] || finish_one
    read -ra words <<< "${runs[i]}"
    timeout -k 10 $longest "$build/bin/${words[0]}" "${words[@]:1}" > "$logs/$i" 2>&1 < /dev/null &
    running[$!]=$i
done
while [ ${#running[@]} -gt 0 ]; do
    finish_one
done

echo "WIDGET_SEED=$seed"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
