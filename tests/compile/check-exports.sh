#!/usr/bin/env bash
# check-exports.sh LIBRARY LIST
# The library file LIBRARY, under the very file name that callers load, exports every name of LIST
# with these parameters, and nothing else. LIST is the same for both systems.
set -euo pipefail
library=$1
list=$2

case $(basename "$library") in
ZELQRNDT017.dll)
  time_type="long long"
  mangled() {
    x86_64-w64-mingw32-objdump -p "$library" |
      awk '/Ordinal\/Name Pointer/ { inside = 1; next } NF == 0 { inside = 0 }
           inside { print $NF }'
  }
  ;;
libZELQRNDT017.so*)
  time_type="long"
  mangled() { nm -D --defined-only "$library" | awk '{ print $3 }'; }
  ;;
*)
  echo "FAILED: unexpected file name $(basename "$library")"
  exit 1
  ;;
esac

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C

# A class has type information under one name on Windows and under two on Linux; the first stands
# for both.
mangled | c++filt | sed '/^typeinfo name for /d' | sort -u >"$work/exported"
sed -e '/^#/d' -e '/^$/d' -e "s/\<time_t\>/$time_type/" "$list" | sort >"$work/listed"

failures=0
report() { # TEXT FILE
  [ -s "$2" ] || return 0
  sed "s/^/FAILED: $1: /" "$2"
  failures=$((failures + $(wc -l <"$2")))
}
uniq -d "$work/listed" >"$work/twice"
comm -13 "$work/exported" "$work/listed" >"$work/missing"
comm -23 "$work/exported" "$work/listed" >"$work/unlisted"
report "listed twice" "$work/twice"
report "not exported" "$work/missing"
report "exported but not listed" "$work/unlisted"

names=$(wc -l <"$work/listed")
echo "$names names checked, $failures failures"
[ "$names" -gt 0 ] && [ "$failures" -eq 0 ]
