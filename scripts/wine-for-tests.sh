#!/bin/bash
# Runs a command where Windows programs can run: with a wine prefix of its own under build/ and on a
# display of its own.
#   scripts/wine-for-tests.sh COMMAND ARGUMENTS…
#
# QBTD_WINE_BITS=32 chooses a prefix for 32-bit programs alone, which Debian's wine can't have beside
# the other; scripts/test-windows-x86.sh makes the place for it.
# In the prefix a program that crashes ends, instead of showing a window that nobody closes; all
# windows lie on a desktop of their own, where no window manager of the display is missed when the
# keyboard goes from one to the other; and the families that stored formats name, and that of windows,
# stand for the free ones of Debian.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
if [ "${QBTD_WINE_BITS:-64}" = 32 ]; then
  export WINEPREFIX=$root/build/wine-x86 WINEARCH=win32
else
  export WINEPREFIX=$root/build/wine WINEARCH=win64
fi
export WINEDEBUG=${WINEDEBUG:--all}
# Nothing is downloaded for the prefix.
export WINEDLLOVERRIDES="mscoree,mshtml="

display_file=$(mktemp)
Xvfb -displayfd 3 -screen 0 2560x1600x24 -nolisten tcp 3>"$display_file" >/dev/null 2>&1 &
server=$!
stop() {
  wineserver -k 2>/dev/null || true
  kill "$server" 2>/dev/null || true
  rm -f "$display_file"
}
trap stop EXIT
for _ in $(seq 100); do
  [ -s "$display_file" ] && break
  sleep 0.1
done
export DISPLAY=:$(<"$display_file")

# add KEY NAME VALUE [TYPE]: one value of the prefix's registry.
add() { wine reg add "$1" /v "$2" /t "${4:-REG_SZ}" /d "$3" /f; }

prepare() {
  mkdir -p "$root/build"
  wineboot --init
  add 'HKCU\Software\Wine\WineDbg' ShowCrashDialog 0 REG_DWORD
  add 'HKCU\Software\Wine\Explorer' Desktop tests
  add 'HKCU\Software\Wine\Explorer\Desktops' tests 1600x1200
  local fonts='HKCU\Software\Wine\Fonts\Replacements'
  local name
  for name in 宋体 SimSun NSimSun 新宋体; do add "$fonts" "$name" 'AR PL UMing CN'; done
  for name in 楷体 楷体_GB2312 KaiTi 仿宋 仿宋_GB2312 FangSong; do
    add "$fonts" "$name" 'AR PL UKai CN'
  done
  add "$fonts" 'Tahoma' 'Noto Sans CJK SC'
  add "$fonts" 'Arial' 'Liberation Sans'
  add "$fonts" 'Times New Roman' 'Liberation Serif'
  add "$fonts" 'Courier New' 'Liberation Mono'
  # The signs on title bars, which Debian's wine doesn't find by itself.
  cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
  wineserver --wait
  touch "$WINEPREFIX/prepared"
}

[ "$WINEPREFIX/prepared" -nt "$0" ] || prepare >"$root/build/wine-prefix.log" 2>&1 ||
  { cat "$root/build/wine-prefix.log" >&2; exit 1; }

"$@"
