#!/usr/bin/env bash
# check-headers.sh COMPILER LIST OPTION...
# Compiles every header that the file LIST names by itself, as C++17 and as C++20, with all
# warnings as errors.
set -uo pipefail
compiler=$1
list=$2
shift 2

check() { # STANDARD HEADER
  "$compiler" -std="c++$1" -Wall -Wextra -pedantic-errors -Werror -x c++ -fsyntax-only \
    "${options[@]}" -include "$2" /dev/null && return 0
  echo "FAILED as C++$1: $2"
  return 1
}
options=("$@")

failures=0
headers=0
while IFS= read -r header; do
  headers=$((headers + 1))
  for standard in 17 20; do
    check "$standard" "$header" || failures=$((failures + 1))
  done
done <"$list"

echo "$headers headers checked, $failures failures"
[ "$headers" -gt 0 ] && [ "$failures" -eq 0 ]
