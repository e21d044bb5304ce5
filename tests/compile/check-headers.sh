#!/usr/bin/env bash
# check-headers.sh COMPILER LIST STANDARDS OPTION...
# Compiles every header that the file LIST names by itself, as C++ of each of STANDARDS ("17 20"),
# and all of them together as C++20, with all warnings as errors.
set -uo pipefail
compiler=$1
list=$2
read -ra standards <<<"$3"
options=("${@:4}")

check() { # WHAT STANDARD OPTION...
  "$compiler" -std="c++$2" -Wall -Wextra -pedantic-errors -Werror -x c++ -fsyntax-only \
    "${options[@]}" "${@:3}" /dev/null && return 0
  echo "FAILED as C++$2: $1"
  failures=$((failures + 1))
}

failures=0
together=()
while IFS= read -r header; do
  together+=(-include "$header")
  for standard in "${standards[@]}"; do
    check "$header" "$standard" -include "$header"
  done
done <"$list"
check "all headers together" 20 "${together[@]}"

echo "$((${#together[@]} / 2)) headers checked, $failures failures"
[ ${#together[@]} -gt 0 ] && [ "$failures" -eq 0 ]
