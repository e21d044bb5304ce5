#!/usr/bin/env bash
# Takes the picture of the order mask for the README: screenshot.sh [PICTURE.png]
#
# The Windows program runs under Wine on a display in memory: once with an order of the sample as it
# is, once with a text that the mask refuses. Wine's prefix and everything else lies in
# build/windows. All that was started is ended, whatever happens.
set -euo pipefail
picture=$(realpath -m "${1:-$(dirname "$0")/../../docs/auftragsmaske.png}")
cd "$(dirname "$0")/../.."

program=build/windows/bin/auftragsmaske.exe
export ZEL_WINEPREFIX="$PWD/build/windows/wineprefix-screenshot"
order=100004

work=$(mktemp -d)

# Process ids, empty while there is no such process.
display=
server=
mask=
end() { # PID SIGNAL
  [ -n "$1" ] || return 0
  kill "-$2" "$1" 2>/dev/null || true
  wait "$1" 2>/dev/null || true
}
stop() {
  end "$mask" TERM
  end "$server" INT # it then ends the other programs of the prefix
  end "$display" TERM
  rm -rf "$work"
}
trap stop EXIT

fail() {
  echo "screenshot.sh: $*" >&2
  exit 1
}

# Tries a command until it succeeds, once a second for a minute.
patiently() {
  local i
  for ((i = 0; i < 60; i++)); do
    if "$@"; then return 0; fi
    sleep 1
  done
  return 1
}

cmake/install-packages.sh windows screenshot
mkdir -p build
if ! { cmake --preset windows && cmake --build build/windows --target example_auftragsmaske; } \
  >"$work/build.log" 2>&1; then
  tail -n 40 "$work/build.log" >&2
  fail "the program could not be built"
fi

# Xvfb chooses a free display and tells its number.
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
display=$!
patiently test -s "$work/display" || fail "no display: $(tail -n 1 "$work/xvfb.log")"
DISPLAY=":$(cat "$work/display")"
export DISPLAY

# The server that all programs of a prefix share stays in the foreground, where it can be ended.
export WINEPREFIX=$ZEL_WINEPREFIX WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
fonts="$WINEPREFIX/drive_c/windows/Fonts"
mkdir -p "$fonts"
# Debian's Wine does not look where Debian puts its fonts.
ln -sf /usr/share/wine/fonts/{tahoma,tahomabd,marlett}.ttf "$fonts"
wineserver -f -p &
server=$!
wine=$(command -v wine64 || command -v wine)
setting() { # KEY NAME TYPE VALUE
  "$wine" reg add "HKCU\\$1" /v "$2" /t "$3" /d "$4" /f >>"$work/wine.log" 2>&1
}
if [ ! -e "$WINEPREFIX/.ready" ]; then
  "$wine" wineboot -i >"$work/wine.log" 2>&1 || fail "Wine: $(tail -n 1 "$work/wine.log")"
  # Without a window manager only Wine draws titles.
  setting 'Software\Wine\X11 Driver' Decorated REG_SZ N
  # Letters with smooth edges, in shades of grey.
  setting 'Control Panel\Desktop' FontSmoothing REG_SZ 2
  setting 'Control Panel\Desktop' FontSmoothingType REG_DWORD 1
  touch "$WINEPREFIX/.ready"
fi

capture() { # NAME
  xwd -silent -name "Auftrag $order" -out "$work/$1.xwd" 2>/dev/null
}

# Painted, when it looks twice the same a second apart, and not all in one colour.
is_painted() { # NAME
  kill -0 "$mask" 2>/dev/null || fail "the program ended: $(tail -n 1 "$work/$1.log")"
  capture "$1" && cp "$work/$1.xwd" "$work/before.xwd" && sleep 1 && capture "$1" &&
    cmp -s "$work/$1.xwd" "$work/before.xwd" &&
    [ "$(xwdtopnm -quiet "$work/$1.xwd" | ppmhist -quiet -noheader | wc -l)" -gt 4 ]
}

take() { # NAME ARGUMENT...
  local name=$1
  cmake/run-under-wine.sh "$program" "${@:2}" examples/data/auftraege.csv "$order" \
    --sql "$work/auftrag.sql" --archiv "$work/auftrag.arc" >"$work/$name.log" 2>&1 &
  mask=$!
  patiently is_painted "$name" || fail "no window: $(tail -n 1 "$work/$name.log")"
  end "$mask" TERM
  mask=
  xwdtopnm -quiet "$work/$name.xwd" >"$work/$name.ppm"
}

take shown
printf '%s\n' 'Menge=12' 'Faellig=31.02.2022' 'Teillieferung=Ja' >"$work/eingaben.txt"
take refused --tippe "$work/eingaben.txt" --fenster

pnmpad -white -bottom 16 "$work/shown.ppm" >"$work/above.ppm"
pnmcat -topbottom -white "$work/above.ppm" "$work/refused.ppm" >"$work/both.ppm"
pnmtopng -quiet -compression 9 "$work/both.ppm" >"$work/both.png"
mv "$work/both.png" "$picture"
echo "screenshot.sh: $picture, $(stat -c %s "$picture") bytes"
