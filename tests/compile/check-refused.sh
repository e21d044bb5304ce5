#!/usr/bin/env bash
# check-refused.sh COMPILER SOURCE OPTION...
# SOURCE holds a control that must compile and numbered cases, `#elif CASE == <number>`, that must
# not. Each case is tried in both language versions.
set -uo pipefail
compiler=$1
source=$2
shift 2

compiles() { # STANDARD CASE
  "$compiler" -std="c++$1" -fsyntax-only -DCASE="$2" "${options[@]}" "$source" 2>/dev/null
}
options=("$@")

cases=$(sed -n 's/^#elif CASE == \([0-9]*\)$/\1/p' "$source")
failures=0
for standard in 17 20; do
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
