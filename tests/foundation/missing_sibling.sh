#!/usr/bin/env bash
# missing_sibling.sh BUILD SOURCE WORK LOADER
#
# Installs the build tree BUILD in the folder WORK and loads the library with the program LOADER:
# complete, then without each of its sibling libraries in turn. Loading must fail then, with the
# system's error, and work again when the sibling is back. Programs for Windows run under Wine.
set -euo pipefail
build=$1
source=$2
work=$3
loader=$4

rm -rf "$work"
mkdir -p "$work/away"
cmake --install "$build" --prefix "$work/prefix" >/dev/null

if [ "${loader##*.}" = exe ]; then
  folder=$work/prefix/bin
  library=$folder/ZELQRNDT017.dll
  cp "$loader" "$folder"
  run() {
    ZEL_WINEPREFIX=$build/wineprefix "$source/cmake/run-under-wine.sh" \
      "$folder/$(basename "$loader")" "$library"
  }
  expected() { echo "error 126"; } # a module is not found
else
  library=$(find "$work/prefix" -name libZELQRNDT017.so)
  folder=$(dirname "$library")
  run() { "$loader" "$library"; }
  expected() { echo "lib$1.so"; }
fi

failures=0
fail() {
  echo "FAILED: $1"
  failures=$((failures + 1))
}

run || fail "the complete installation cannot be loaded"
for sibling in ZELQRNFW001 ZELQRNEH011 ZELQRNEUSY004 ZELQRNFOMT005 ZELQRNRW_BCD011; do
  mv "$folder"/*"$sibling".* "$work/away"
  code=0
  said=$(run) || code=$?
  mv "$work/away"/* "$folder"
  [ "$code" -eq 1 ] || fail "without $sibling the program ends with $code"
  [[ $said == *"$(expected "$sibling")"* ]] || fail "without $sibling the system says: $said"
done
run || fail "the complete installation cannot be loaded any more"
echo "$failures failures"
[ "$failures" -eq 0 ]
