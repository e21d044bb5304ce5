#!/usr/bin/env bash
# consume.sh installed|subdirectory|pkg-config BUILD SOURCE WORK [CMAKE-OPTION...]
#
# Builds and runs the caller's program in the folder WORK: against an installation of the build
# tree BUILD, with the library's sources SOURCE as a subdirectory, or with the flags of pkg-config.
# Programs for Windows run under Wine.
set -euo pipefail
way=$1
build=$2
source=$3
work=$4
shift 4

rm -rf "$work"
mkdir -p "$work"
prefix=$work/prefix

run_built() { # DIRECTORY
  if [ -e "$1/consumer.exe" ]; then
    # The wrapper looks for libraries beside the program and keeps its prefix two folders above.
    mkdir -p "$work/run/bin"
    find "$1" "$prefix" -name '*.dll' -exec cp {} "$work/run/bin/" \; 2>/dev/null || true
    cp "$1/consumer.exe" "$work/run/bin/"
    ZEL_WINEPREFIX=$build/wineprefix "$source/cmake/run-under-wine.sh" "$work/run/bin/consumer.exe"
  else
    "$1/consumer"
  fi
}

case $way in
installed)
  cmake --install "$build" --prefix "$prefix" >/dev/null
  cmake -S "$source/tests/consumer/installed" -B "$work/build" -G Ninja \
    -DZELQRNDT017_DIR="$(dirname "$(find "$prefix" -name ZELQRNDT017Config.cmake)")" "$@"
  cmake --build "$work/build"
  run_built "$work/build"
  ;;
subdirectory)
  cmake -S "$source/tests/consumer/subdirectory" -B "$work/build" -G Ninja \
    -DLIBRARY_SOURCE_DIR="$source" "$@"
  cmake --build "$work/build"
  run_built "$work/build"
  ;;
pkg-config)
  cmake --install "$build" --prefix "$prefix" >/dev/null
  libraries=$(dirname "$(find "$prefix" -name 'libZELQRNDT017.so' | head -n 1)")
  export PKG_CONFIG_PATH=$libraries/pkgconfig
  # Word splitting is wanted: the output is a list of options.
  # shellcheck disable=SC2046
  g++ -std=c++17 "$source/tests/consumer/consumer.cpp" -o "$work/consumer" \
    $(pkg-config --define-variable=prefix="$prefix" --cflags --libs ZELQRNDT017) \
    -Wl,-rpath,"$libraries"
  run_built "$work"
  ;;
*)
  echo "unknown way: $way" >&2
  exit 2
  ;;
esac
