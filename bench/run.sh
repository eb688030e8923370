#!/usr/bin/env bash
# Installs what is missing, builds, makes the drawings, runs all benchmarks and prints one Markdown table.
#   bench/run.sh                 everything (about 15 minutes)
#   bench/run.sh 'Load|Pass'     only the benchmarks whose names match
set -euo pipefail
cd "$(dirname "$0")/.."
source tools/packages.sh
tools/install.sh "${build_packages[@]}" "${test_packages[@]}" "${bench_packages[@]}" python3
cmake --preset release >/dev/null
cmake --build --preset release --target programs roadgen veloxa_bench veloxa_memory >&2

bin=build/release/bin
data=build/bench
mkdir -p "$data"

# drawing NAME OPTION... makes a drawing unless it is there; the name of a drawing being made is never its last.
drawing() {
  [ -e "$data/$1" ] && return
  echo "making $1" >&2
  "$bin/roadgen" "${@:2}" --out "$data/$1.part"
  mv "$data/$1.part" "$data/$1"
}
stamp=$(sha256sum "$bin/roadgen" bench/run.sh | sha256sum)
[ "$(cat "$data/stamp" 2>/dev/null)" = "$stamp" ] || rm -f "$data"/*.dxf
echo "$stamp" >"$data/stamp"
drawing 10mb.dxf --mb 10
drawing 100mb.dxf --mb 100
drawing 10km.dxf --km 10
drawing 100x1000.dxf --sections 100 --polylines 1000
drawing 1000x10000.dxf --sections 1000 --polylines 10000
drawing 2000x100000.dxf --sections 2000 --polylines 100000
drawing refresh.dxf --sections 1000 --points 100000

export VELOXA_BENCH_DATA=$PWD/$data
"$bin/veloxa_bench" --benchmark_filter="${1:-.}" --benchmark_repetitions=7 --benchmark_min_time=0.05 \
  --benchmark_enable_random_interleaving=true --benchmark_out="$data/times.json" --benchmark_out_format=json \
  --benchmark_report_aggregates_only=true >&2
python3 bench/table.py "$data" "$bin" build/release
