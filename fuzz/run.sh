#!/usr/bin/env bash
# Runs every fuzzer in turn for its share of the time and prints how much of the program its inputs reached.
#   fuzz/run.sh MINUTES [NAME...]     all of them, or those named
#   fuzz/run.sh --keep [NAME...]      writes fuzz/coverage.txt anew: after the corpus or the code has changed
# Fails when an input crashes a fuzzer, hangs it or breaks what must hold (the input is kept in build/asan/found), and
# when a fixed number of runs from the kept corpus covers clearly less than fuzz/coverage.txt says.
set -euo pipefail
cd "$(dirname "$0")/.."
[ $# -gt 0 ] || { sed -n '2,6s/^# \?//p' "$0"; exit 2; }
minutes=$1
shift
fuzzers=(drawing binary_drawing symbol library plan_table settings script)
[ $# -eq 0 ] || fuzzers=("$@")

fixed_runs=100
tolerance=10 # percent: what is reached moves a little with every change of the code
build=build/asan
found=$build/found
work=$build/fuzz
kept=fuzz/coverage.txt
common=(-max_len=16384 -timeout=30 -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$found/")

cmake --preset asan >/dev/null
cmake --build --preset asan --target "${fuzzers[@]/#/fuzz_}"
mkdir -p "$found" "$work/tmp"
export TMPDIR=$PWD/$work/tmp

# Runs a fuzzer; the figures it ends with go to `edges` and `runs`.
fuzz() {
  local name=$1 log=$work/$1.log
  shift
  if ! "$build/bin/fuzz_$name" "${common[@]}" "$@" >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    echo "$name: see $log; the input is in $found" >&2
    return 1
  fi
  edges=$(grep -o 'cov: [0-9]*' "$log" | tail -n 1 | cut -d' ' -f2)
  runs=$(sed -n 's/^stat::number_of_executed_units: //p' "$log")
}

status=0
for name in "${fuzzers[@]}"; do
  fuzz "$name" -seed=1 -runs="$fixed_runs" "fuzz/corpus/$name" || { status=1; continue; }
  if [ "$minutes" = --keep ]; then
    { grep -v "^$name " "$kept" 2>/dev/null || true; echo "$name $edges"; } | sort >"$kept.new"
    mv "$kept.new" "$kept"
    echo "$name: $edges edges covered by $runs runs"
    continue
  fi
  expected=$(sed -n "s/^$name //p" "$kept")
  if [ "$edges" -lt $((expected * (100 - tolerance) / 100)) ]; then
    echo "$name: the corpus covers $edges edges, $expected are kept in $kept" >&2
    status=1
  fi
  new=$work/corpus/$name
  mkdir -p "$new"
  fuzz "$name" -max_total_time=$((minutes * 60 / ${#fuzzers[@]})) "$new" "fuzz/corpus/$name" || { status=1; continue; }
  echo "$name: $runs runs, $edges edges covered"
done
rm -rf "$work/tmp"
exit $status
