#!/usr/bin/env bash
# Shows the library's main job on the sample customers: installs what is missing, builds zelconv,
# and converts examples/data/kunden.csv into every form. What it makes lies in a temporary folder
# and is gone afterwards; the build stays in build/demo.
set -euo pipefail
cd "$(dirname "$0")"

step="preparation"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'echo "demo.sh: FAILED: $step" >&2' ERR

begin() {
  step=$1
  printf '\n=== %s ===\n' "$step"
}

build() {
  cmake --preset release -B build/demo -DZELDT_BUILD_TESTS=OFF &&
    cmake --build build/demo --target zelconv
}

# zelconv with the customers' columns; some rows are rejected, which is status 1 and expected where
# the sample itself is read.
customers="Nr:long,Name:string,Strasse:string,PLZ:string,Ort:string,Bemerkung:string"
convert() {
  echo "\$ zelconv $(printf '%q ' "$@" | sed "s|$work/||g; s|\\\\,|,|g")"
  build/demo/bin/zelconv "$@"
}
convert_sample() {
  local status=0
  convert --columns "$customers" --from csv "$@" || status=$?
  [ "$status" -eq 1 ]
}

sample=examples/data/kunden.csv

begin "packages"
cmake/install-packages.sh build tools

begin "build"
if ! build >"$work/build.log" 2>&1; then
  tail -n 40 "$work/build.log"
  false
fi
echo "zelconv is built: build/demo/bin/zelconv"

begin "customers in house order, as a display table"
convert_sample --to display --sort Name --rejects "$work/rejects.txt" "$sample" "$work/table.txt"
head -n 12 "$work/table.txt"
echo "..."
grep -m 1 -B 2 -A 2 -E '^ *[0-9]+  Ä' "$work/table.txt"
echo "..."
tail -n 5 "$work/table.txt"
echo "Accented letters stand right behind their base letter: all of Ä between A and B."

begin "the same rows as SQL"
convert_sample --to sql --table Kunden "$sample" "$work/kunden.sql" 2>/dev/null
head -n 5 "$work/kunden.sql"
echo "... $(grep -c '^INSERT INTO' "$work/kunden.sql") statements"

begin "the same rows in Extern form"
convert_sample --to extern "$sample" "$work/kunden.ext" 2>/dev/null
head -n 5 "$work/kunden.ext"
echo "..."
tail -n 1 "$work/kunden.ext"

begin "into an archive and back"
convert_sample --to csv "$sample" "$work/before.csv" 2>/dev/null
convert --columns "$customers" --from csv --to archive "$work/before.csv" "$work/kunden.zca"
convert --from archive --to csv "$work/kunden.zca" "$work/after.csv"
cmp "$work/before.csv" "$work/after.csv"
convert --from archive --to extern "$work/kunden.zca" "$work/after.ext"
cmp "$work/kunden.ext" "$work/after.ext"
convert --from extern --to archive "$work/kunden.ext" "$work/again.zca"
cmp "$work/kunden.zca" "$work/again.zca"
echo "No difference: CSV, Extern and archive of $(stat -c %s "$work/kunden.zca") bytes."

begin "what was rejected, and why"
cat "$work/rejects.txt"
echo

echo
echo "demo.sh: done"
