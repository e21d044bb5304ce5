#!/usr/bin/env bash
# Installs what is missing, then builds and tests everything: Linux, the sanitizers, the Windows
# DLLs under Wine, the ways callers take the library, formatting and lint.
# Ends with ctest's summary of the last stage; the first failure ends it with one line.
set -euo pipefail
cd "$(dirname "$0")"

stage=preparation
started=$SECONDS
trap 'echo "test.sh: FAILED in stage: $stage" >&2' ERR

begin() {
  stage=$1
  echo
  echo "=== $stage ($((SECONDS - started)) s) ==="
}

# Output of a build is shown only when it fails.
build() { # PRESET
  local log=build/$1.log
  mkdir -p build
  if ! { cmake --preset "$1" && cmake --build --preset "$1"; } >"$log" 2>&1; then
    tail -n 60 "$log"
    return 1
  fi
}

# Many tests wait for a server or for each other: one more than there are processors.
run_tests() { # PRESET
  ctest --preset "$1" -j "$(($(nproc) + 1))"
}

begin "packages"
cmake/install-packages.sh build tools recordsets windows lint

# clang-tidy reports clang's own warnings too, so nothing need be built with it.
begin "formatting and lint"
cmake --preset clang >/dev/null
cmake/lint.sh

begin "Linux: build"
build debug
begin "Linux: tests"
run_tests debug

begin "sanitizers: build"
build asan
begin "sanitizers: tests"
run_tests asan

begin "Windows: build"
build windows
begin "Windows: tests under Wine"
run_tests windows
