#!/bin/bash
# Runs a command where Windows programs can run: with a wine prefix of its own under build/, on a
# display of its own, and with a printing system of its own, whose queues are those of
# cups-for-tests.sh. As root, or with sudo.
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

# What the display and the printing system have, for as long as this runs.
state=$(mktemp -d)
servers=()
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
stop() {
  wineserver -k 2>/dev/null || true
  [ ${#servers[@]} -eq 0 ] || "${as_root[@]}" kill "${servers[@]}" 2>/dev/null || true
  wait "${servers[@]}" 2>/dev/null || true
  "${as_root[@]}" rm -rf "$state"
}
trap stop EXIT

# wait_for WHAT TEST…
wait_for() {
  local what=$1
  shift
  for _ in $(seq 100); do
    if "$@" >/dev/null 2>&1; then return; fi
    sleep 0.1
  done
  echo "$what does not start." >&2
  exit 1
}

Xvfb -displayfd 3 -screen 0 2560x1600x24 -nolisten tcp 3>"$state/display" >/dev/null 2>&1 &
servers+=($!)
wait_for "The display" test -s "$state/display"
export DISPLAY=:$(<"$state/display")

# Whoever reaches its socket may do everything.
start_printing() {
  mkdir -p "$state"/cups/{cache,spool,ssl,temp}
  chmod 755 "$state"
  chmod 1777 "$state/cups/temp"
  cat >"$state/cups/cupsd.conf" <<CUPSD
Listen $state/cups/sock
LogLevel warn
Browsing No
WebInterface No
DefaultAuthType None
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess all
  SubscriptionPrivateValues none
  <Limit All>
    Order deny,allow
    Allow all
  </Limit>
</Policy>
CUPSD
  cat >"$state/cups/cups-files.conf" <<FILES
ServerRoot $state/cups
ServerKeychain $state/cups/ssl
StateDir $state/cups
CacheDir $state/cups/cache
RequestRoot $state/cups/spool
TempDir $state/cups/temp
AccessLog $state/cups/access
PageLog $state/cups/pages
ErrorLog $root/build/wine-cups.log
FILES
  "${as_root[@]}" rm -f "$root/build/wine-cups.log"
  export CUPS_SERVER=$state/cups/sock QBTD_QUEUES=qbtd-windows
  "${as_root[@]}" /usr/sbin/cupsd -f -c "$state/cups/cupsd.conf" -s "$state/cups/cups-files.conf" &
  servers+=($!)
  wait_for "The printing system" test -S "$CUPS_SERVER"
  "$root/scripts/cups-for-tests.sh"
}
mkdir -p "$root/build"
start_printing

# add KEY NAME VALUE [TYPE]: one value of the prefix's registry.
add() { wine reg add "$1" /v "$2" /t "${4:-REG_SZ}" /d "$3" /f; }

prepare() {
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
  # A name that the system knows, and that its list of families doesn't tell.
  add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontSubstitutes' '别名宋体' 'AR PL UMing CN'
  # The signs on title bars, which Debian's wine doesn't find by itself.
  cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
  wineserver --wait
  touch "$WINEPREFIX/prepared"
}

[ "$WINEPREFIX/prepared" -nt "$0" ] || prepare >"$root/build/wine-prefix.log" 2>&1 ||
  { cat "$root/build/wine-prefix.log" >&2; exit 1; }

"$@"
