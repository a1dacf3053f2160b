#!/usr/bin/env bash
# Has libFuzzer use every class at random for some minutes, as many classes at a time as there are processors.
#
#   tests/fuzz/fuzz.sh <build directory> <minutes> [<class>...]
#
# The build is one with -DWIDGET_SANITIZE=fuzzer. What led somewhere new is kept in corpus/ there, an input that made a
# class fail in failures/. To see its steps: <build directory>/bin/drive --verbose --target <class> <file>

set -u
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
fuzz=${1:-}/bin/fuzz
if [ $# -lt 2 ] || [ ! -x "$fuzz" ] || [[ ! $2 =~ ^[1-9][0-9]*$ ]]; then
    sed -n '2,/^$/s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
    exit 2
fi
build=$1 minutes=$2
shift 2
[ $# -gt 0 ] || mapfile -t < <("$build/bin/drive" --list) && set -- "$@" "${MAPFILE[@]}"

# The toolkit's offscreen platform never deletes its screen.
export ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1
export fuzz build minutes here

fuzz_class()
{
    local name=$1 log=$build/fuzz-$1.log
    mkdir -p "$build/corpus/$name" "$build/failures" "$here/corpus/$name"
    "$fuzz" "--target=$name" "-max_total_time=$((minutes * 60))" -max_len=3000 -timeout=120 -rss_limit_mb=3000 \
        "-dict=$here/fuzz.dict" "-artifact_prefix=$build/failures/$name-" -print_final_stats=1 \
        "$build/corpus/$name" "$here/corpus/$name" > "$log" 2>&1 < /dev/null
    local status=$?
    printf '%-20s %8s inputs, %s\n' "$name" "$(sed -n 's/^stat::number_of_executed_units: //p' "$log")" \
        "$([ $status -eq 0 ] && echo ok || echo "FAILED, see $log")"
    return $status
}
export -f fuzz_class

printf '%s\0' "$@" | xargs -0 -n 1 -P "$(nproc)" bash -c 'fuzz_class "$1"' fuzz
