#!/usr/bin/env bash
# check-exports.sh LIBRARY NAMES
# Every name of the list NAMES is exported by the library file LIBRARY, under the very file name
# that callers load, and nothing of the library's own namespaces is.
set -euo pipefail
library=$1
names=$2

case $(basename "$library") in
ZELQRNDT017.dll)
  exported=$(x86_64-w64-mingw32-objdump -p "$library" | sed -n '/Ordinal\/Name/,/^$/p' |
    awk '{print $NF}' | c++filt)
  ;;
libZELQRNDT017.so*)
  exported=$(nm -D --defined-only "$library" | awk '{print $3}' | c++filt)
  ;;
*)
  echo "FAILED: unexpected file name $(basename "$library")"
  exit 1
  ;;
esac

failures=0
while IFS= read -r name; do
  case $name in '' | '#'*) continue ;; esac
  # A function stands before its parameters, anything else alone.
  if ! awk -v name="$name" '$0 == name || index($0, name "(") == 1 { found = 1 }
                            END { exit !found }' <<<"$exported"; then
    echo "FAILED: not exported: $name"
    failures=$((failures + 1))
  fi
done <"$names"

if grep -E '^(zeldt|zelrt)::' <<<"$exported"; then
  echo "FAILED: the names above are private"
  failures=$((failures + 1))
fi
echo "$(grep -vc '^#' "$names") names checked, $failures failures"
[ "$failures" -eq 0 ]
