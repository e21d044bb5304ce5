#!/usr/bin/env bash
# Installs the Debian packages that are missing: install-packages.sh GROUP...
#
#   build       compiler, build system, GoogleTest
#   tools       what zelconv and its tests stand on
#   recordsets  ODBC with the drivers of SQLite and MariaDB, and both databases
#   windows     compiler for 64-bit Windows, and Wine to run what it makes
#   screenshot  a display in memory, and programs that make a picture of it
#   lint        clang, clang-format, clang-tidy
#   fuzz        clang with its fuzzer
#   bench       Google Benchmark and the libraries to measure against
#
# Nothing is fetched when everything is there.
set -euo pipefail

declare -A packages_of=(
  [build]="g++ cmake ninja-build ccache libgtest-dev libgmock-dev pkgconf"
  [tools]="libcli11-dev python3"
  [recordsets]="unixodbc-dev libsqliteodbc libsqlite3-dev odbc-mariadb mariadb-server sqlite3"
  [windows]="wine wine64 g++-mingw-w64-x86-64-posix googletest"
  [screenshot]="xvfb x11-apps netpbm fonts-wine"
  [lint]="clang clang-format-14 clang-tidy-14 git"
  [fuzz]="clang libclang-rt-14-dev"
  [bench]="libbenchmark-dev libicu-dev libfmt-dev libcereal-dev libboost-serialization-dev libboost-dev
    libdfp-dev libhowardhinnant-date-dev librust-rust-decimal-dev cargo python3
    libsoci-dev valgrind"
)

fail() {
  echo "install-packages.sh: $*" >&2
  exit 1
}

is_installed() {
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

[ $# -gt 0 ] || fail "which groups? There are: $(printf '%s\n' "${!packages_of[@]}" | sort | xargs)"
command -v dpkg-query >/dev/null || fail "this is no Debian system; install the packages by hand"

missing=()
for group in "$@"; do
  [ -n "${packages_of[$group]:-}" ] || fail "unknown group '$group'"
  for package in ${packages_of[$group]}; do
    is_installed "$package" || missing+=("$package")
  done
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "Packages for $*: all there."
  exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null ||
    fail "neither root nor sudo; please install: ${missing[*]}"
  as_root=(sudo)
fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT
run() { # what it is, command...
  local what=$1
  shift
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive "$@" >"$log" 2>&1 || {
    tail -n 20 "$log" >&2
    fail "$what failed"
  }
}

echo "Installing: ${missing[*]}"
run "apt-get update" apt-get update
run "apt-get install ${missing[*]}" apt-get install -y --no-install-recommends "${missing[@]}"
