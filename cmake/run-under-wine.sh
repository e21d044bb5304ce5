#!/usr/bin/env bash
# Runs a Windows program under Wine: run-under-wine.sh PROGRAM.exe [ARGUMENT...]
#
# The prefix lies in the build tree, two folders above the program (<build>/bin/PROGRAM.exe),
# and is made on first use. A lock lets only one process make it. LC_ALL decides the system
# code pages; German settings (ANSI 1252, OEM 850) unless the caller chose others.
set -euo pipefail

# Debian installs the 64-bit Wine under one name or the other.
wine=$(command -v wine64 || command -v wine) || { echo "Wine is not installed" >&2; exit 127; }

program=$(realpath "$1")
shift
build=$(dirname "$(dirname "$program")")

export WINEPREFIX="${ZEL_WINEPREFIX:-$build/wineprefix}"
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
locale="${ZEL_WINE_LC_ALL:-de_DE.UTF-8}"

gcc_runtime=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
pthread_runtime=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libwinpthread-1.dll)")
WINEPATH="$(dirname "$program");$(realpath "$gcc_runtime");$(realpath "$pthread_runtime")"
export WINEPATH

mkdir -p "$WINEPREFIX"
exec 9>"$WINEPREFIX.lock"
flock 9
if [ ! -e "$WINEPREFIX/.ready" ]; then
  LC_ALL="$locale" "$wine" wineboot -i >/dev/null 2>&1 9>&-
  "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1 9>&-
  # A program that crashes writes where and ends, rather than wait for somebody to close a dialog.
  "$wine" reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f \
    >/dev/null 2>&1 9>&-
  # The desktop of this session began with other settings and makes no windows. Its end takes a
  # while.
  "$wine" wineboot -k >/dev/null 2>&1 9>&-
  wineserver -w 9>&-
  touch "$WINEPREFIX/.ready"
fi
# Wine's services keep the error output of the program that began the session. Were it a pipe of a
# test's, its reader would wait for their end, which comes only after every other program's. So the
# session is begun here, with nothing to keep, and outlives its last program by some seconds.
if wineserver -p10 </dev/null >/dev/null 2>&1 9>&-; then
  LC_ALL="$locale" "$wine" wineboot </dev/null >/dev/null 2>&1 9>&-
fi
exec 9>&-

exec env LC_ALL="$locale" "$wine" "$program" "$@"
