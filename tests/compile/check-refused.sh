#!/usr/bin/env bash
# check-refused.sh COMPILER SOURCE OPTION...
# SOURCE holds a control that must compile and numbered cases, `#elif CASE == <number>`, that must
# not. Both language versions are tried. The cases are compiled together, each in a block of its own
# whose lines bear the case's number: one that no error names has compiled.
set -uo pipefail
compiler=$1
source=$2
shift 2

options=("$@")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

compile() { # STANDARD SOURCE OPTION...
  "$compiler" -std="c++$1" -fsyntax-only "${options[@]}" "${@:3}" "$2"
}

# The head of the source up to the control, then the cases, then the end.
awk '
  /^#if CASE == 0$/ { skipping = 1; next }
  /^#elif CASE == [0-9]+$/ {
    if (!skipping) print "}"
    skipping = 0
    number = $NF
    print "{"
    next
  }
  /^#endif$/ && number { if (!skipping) print "}"; number = ""; next }
  skipping { next }
  number { print "#line " number " \"case\"" }
  { print }
' "$source" >"$work/cases.cpp"

if "$compiler" --version | grep -q clang; then
  all_errors=-ferror-limit=0
else
  all_errors=-fmax-errors=0
fi

cases=$(sed -n 's/^#elif CASE == \([0-9]*\)$/\1/p' "$source" | sort)
failures=0
for standard in 17 20; do
  if ! compile "$standard" "$source" -DCASE=0; then
    echo "FAILED as C++$standard: the control does not compile"
    failures=$((failures + 1))
  fi
  compile "$standard" "$work/cases.cpp" "$all_errors" 2>"$work/errors" && failures=$((failures + 1))
  refused=$(sed -n 's/^case:\([0-9]*\):[0-9]*: error: .*/\1/p' "$work/errors" | sort -u)
  for number in $(comm -23 <(echo "$cases") <(echo "$refused")); do
    echo "FAILED as C++$standard: case $number compiles"
    failures=$((failures + 1))
  done
done

echo "$(wc -w <<<"$cases") cases checked, $failures failures"
[ -n "$cases" ] && [ "$failures" -eq 0 ]
