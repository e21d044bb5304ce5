#!/usr/bin/env bash
# Measures the library: installs the peers, builds everything optimised, runs all benchmarks and
# writes what they found into docs/performance.md.
#
#   ./bench.sh             everything, about three quarters of an hour; wants an idle machine
#   ./bench.sh --quick     a few jobs, a minute; only prints a table
#   ./bench.sh --windows   only the program for Windows under Wine; only prints a table
#
# Ends with 0 when everything could be measured, whatever it found; the first failure ends it with
# one line.
set -Eeuo pipefail
cd "$(dirname "$0")"

# One job of every kind with a bar, enough to see whether a change did harm.
quick_jobs='value/add|decimal96/(add-same|multiply-money|divide-28|print-money)|double-digits'
quick_jobs+='|text-to-integer|date-digits|quote/14|sortorder/compare|codepage/german-4KB'
quick_jobs+='|archive/(read|write)-plain|display/show-long'
results=build/results

stage=preparation
started=$SECONDS
trap 'echo "bench.sh: FAILED in stage: $stage" >&2' ERR

usage() {
  sed -n 's/^#   //p' "$0"
}

begin() {
  stage=$1
  echo
  echo "=== $stage ($((SECONDS - started)) s) ==="
}

# Output of a build is shown only when it fails.
build() { # PRESET TARGET...
  local preset=$1 log=build/$1.log
  shift
  mkdir -p build
  if ! { cmake --preset "$preset" && cmake --build --preset "$preset" --target "$@"; } \
    >"$log" 2>&1; then
    tail -n 60 "$log"
    return 1
  fi
}

has_windows() {
  command -v x86_64-w64-mingw32-g++-posix >/dev/null && command -v wine64 wine >/dev/null
}

quick() {
  begin "packages"
  cmake/install-packages.sh bench
  begin "build"
  build bench zel_benchmarks
  begin "jobs"
  benchmarks/run.py --quick --filter "^($quick_jobs)/"
}

only_windows() {
  begin "packages"
  cmake/install-packages.sh bench windows
  begin "build"
  build bench-windows all
  begin "jobs under Wine"
  benchmarks/run.py --windows
}

everything() {
  begin "packages"
  cmake/install-packages.sh bench tools recordsets
  begin "build"
  local builds=(build/bench)
  build bench all
  build release zelconv
  if has_windows; then
    build bench-windows all
    builds+=(build/bench-windows)
  else
    echo "Neither mingw-w64 nor Wine: no Windows programs. cmake/install-packages.sh windows"
  fi
  rm -rf "$results"
  mkdir -p "$results"

  begin "instructions"
  benchmarks/instructions.py --csv "$results/instructions.csv"
  begin "size and start-up"
  benchmarks/startup/run.py --csv "$results/startup.csv" "${builds[@]}"
  begin "jobs"
  benchmarks/run.py --json "$results/program.json"
  begin "zelconv"
  benchmarks/zelconv/run.py | tee "$results/zelconv.txt"
  begin "record sets"
  benchmarks/recordsets.py --repetitions 3 | tee "$results/recordsets.txt"
  begin "growth"
  benchmarks/scaling.py
  if has_windows; then
    begin "Windows: jobs under Wine"
    benchmarks/run.py --windows --json "$results/windows.json"
  fi
  begin "docs/performance.md"
  benchmarks/report.py
}

case "$#:${1:-}" in
0:) everything ;;
1:--quick) quick ;;
1:--windows) only_windows ;;
1:--help | 1:-h) usage && exit ;;
*)
  usage >&2
  exit 2
  ;;
esac
echo
echo "bench.sh: done in $((SECONDS - started)) s"
