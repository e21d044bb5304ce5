#!/usr/bin/env bash
# check-refused.sh COMPILER SOURCE OPTION...
# SOURCE holds a control that must compile and numbered cases, `#elif CASE == <number>`, that must
# not. Each case is tried in both language versions. The library's headers are compiled only once
# for each.
set -uo pipefail
compiler=$1
source=$2
shift 2

options=("$@")
headers=$(mktemp -d)
trap 'rm -rf "$headers"' EXIT
echo '#include <ZelDt.h>' >"$headers/callers.h"

prepare() { # STANDARD
  "$compiler" -std="c++$1" "${options[@]}" -x c++-header "$headers/callers.h" \
    -o "$headers/callers.h.gch"
}
compiles() { # STANDARD CASE
  "$compiler" -std="c++$1" -fsyntax-only -DCASE="$2" "${options[@]}" \
    -include "$headers/callers.h" "$source" 2>/dev/null
}

cases=$(sed -n 's/^#elif CASE == \([0-9]*\)$/\1/p' "$source")
failures=0
for standard in 17 20; do
  prepare "$standard" || exit 1
  if ! compiles "$standard" 0; then
    echo "FAILED as C++$standard: the control does not compile"
    failures=$((failures + 1))
  fi
  for number in $cases; do
    if compiles "$standard" "$number"; then
      echo "FAILED as C++$standard: case $number compiles"
      failures=$((failures + 1))
    fi
  done
done

echo "$(wc -w <<<"$cases") cases checked, $failures failures"
[ -n "$cases" ] && [ "$failures" -eq 0 ]
