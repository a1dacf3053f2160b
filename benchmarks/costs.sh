#!/usr/bin/env bash
# Counts the instructions of what bench measures, under callgrind, and holds them to what costs.txt accepts.
#
#   benchmarks/costs.sh BUILD            fails if some work costs more than is accepted
#   benchmarks/costs.sh BUILD --renew    accepts what is found, for the toolkit of that build
#
# Compared are ratios, because counts alone differ between processors and releases of the toolkit: the library's work
# beside the plain toolkit's in the same run. Two kinds of work are compared with something else: that in long lists
# with the plain toolkit's in a short one, so that both ratios are the same where the length does not matter, and a tick
# of the clock that changes nothing with writing a number as a text.

set -u
export LC_ALL=C
tolerance=5  # per cent
accepted=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/costs.txt

fail() { echo "costs.sh: $*" >&2; exit 1; }

[ $# -eq 1 ] || { [ $# -eq 2 ] && [ "$2" = --renew ]; } || fail "Usage: benchmarks/costs.sh BUILD [--renew]"
[ -x "$1/bin/bench" ] || fail "There is no $1/bin/bench."
toolkit=qt$(sed -n 's/^WIDGET_QT:STRING=//p' "$1/CMakeCache.txt") || exit 1
grep -q '^CMAKE_BUILD_TYPE:STRING=Release$' "$1/CMakeCache.txt" || fail "$1 is no Release build."
counts=$(mktemp -d) || exit 1
trap 'rm -rf "$counts"' EXIT

# Without what only some processors have, and with all symbols bound before anything is counted.
LD_BIND_NOW=1 QT_NO_CPU_FEATURE=avx2 \
    valgrind --tool=callgrind --instr-atstart=no --collect-atstart=no --callgrind-out-file="$counts/dump" \
    "$1/bin/bench" --count > "$counts/log" 2>&1 || { cat "$counts/log" >&2; fail "Counting failed."; }

# <work> <instructions of the library for a step> <beside what> <its instructions> <ratio>
found=$(awk '
    /^desc: Trigger: Client Request: / { work = $5; make = $6; steps = $7 }
    # The least of a few rounds: now and then a cache of the toolkit grows or is swept in one.
    /^totals: / && work != "" {
        cost = $2 / steps
        if (!((work, make) in count) || cost < count[work, make])
            count[work, make] = cost
        work = ""
    }
    function report(work, beside, base) {
        if (!((work, "library") in count) || base == 0)
            exit 1
        printf "%s %.0f %s %.0f %.3f\n", work, count[work, "library"], beside, base, count[work, "library"] / base
    }
    function plain(work) { report(work, "plain", count[work, "plain"]) }
    function grown(work, base) { report(work, base "-plain", count[base, "plain"]) }
    END {
        plain("down"); plain("in-view"); plain("value"); plain("build-12"); plain("build-200")
        plain("view-down"); plain("view-in-view"); plain("view-value"); plain("view-build")
        plain("tick"); plain("keypad"); plain("switcher")
        report("unchanged-tick", "number", count["unit", "plain"])
        grown("down-200", "down"); grown("down-2000", "down")
        grown("value-200", "value"); grown("value-2000", "value")
        grown("view-down-12", "view-down"); grown("view-down-100000", "view-down")
        grown("view-build-12", "view-build"); grown("view-build-100000", "view-build")
        grown("tick-12", "tick"); grown("tick-200", "tick"); grown("tick-2000", "tick")
        grown("build-2000", "build-200")
    }' "$counts"/dump.*) || fail "Some work was not counted."

if [ "${2-}" = --renew ]; then
    others=$(sed '/^qt[0-9]/!d' "$accepted" 2> /dev/null | grep -v "^$toolkit ")
    {
        echo "# What costs.sh accepts: the toolkit, the work, what it is compared with, and how many times that it costs."
        echo "# Long lists are compared with the plain work in a short one: down-2000 would best be the same as down, and"
        echo "# build-2000 ten times build-200."
        { [ -z "$others" ] || echo "$others"; awk -v t="$toolkit" '{ print t, $1, $3, $5 }' <<< "$found"; } | sort -s -k1,1
    } > "$counts/new" && cp "$counts/new" "$accepted" || fail "$accepted cannot be written."
fi

awk -v toolkit="$toolkit" -v tolerance="$tolerance" '
    NR == FNR { if ($1 == toolkit) accepted[$2] = $4; next }
    FNR == 1 { printf "%-16s %12s %-16s %12s %9s %9s\n", toolkit, "instructions", " beside", "", "times", "accepted" }
    {
        printf "%-16s %12d  %-15s %12d %9.3f %9s", $1, $2, $3, $4, $5, accepted[$1]
        if (!($1 in accepted)) {
            print "  NOT ACCEPTED YET"
            bad = bad "\n" $1 " is not in costs.txt yet"
        } else if ($5 > accepted[$1] * (1 + tolerance / 100)) {
            print "  MORE"
            bad = bad sprintf("\n%s (%s) costs %s times %s, accepted are %s", $1, toolkit, $5, $3, accepted[$1])
        } else if ($5 < accepted[$1] * (1 - tolerance / 100)) {
            print "  less"
            less = 1
        } else {
            print ""
        }
    }
    END {
        if (less)
            print "\nSome work has become cheaper. Hold it: benchmarks/costs.sh <build> --renew"
        if (bad != "") {
            print bad "\nIf that is meant: benchmarks/costs.sh <build> --renew"
            exit 1
        }
    }' "$accepted" - <<< "$found"
