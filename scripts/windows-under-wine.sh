#!/bin/bash
# Opens each window of tdprint.exe on screens of several resolutions, uses it with keys, the mouse and
# the wheel as a person does, looks at what comes of it, and takes pictures of all windows, to be looked
# at in build/windows-pictures. Needs the build that is looked at and the queues of
# scripts/cups-for-tests.sh; runs inside scripts/wine-for-tests.sh.
#   scripts/windows-under-wine.sh FOLDER [DOTS_PER_INCH…]    that of tdprint.exe; 96 and 192 without one
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/queue-jobs.bash
programs=$(cd "$1" && pwd)
readonly programs pictures=$PWD/build/windows-pictures output=/var/spool/cups-pdf/$QBTD_QUEUES queue=QbTd-PDF
shift
resolutions=("$@")
[ $# -gt 0 ] || resolutions=(96 192)

work=$(mktemp -d)
program=
readonly work shop=$work/shop.db

# put_screen DOTS_PER_INCH SIZE: for the programs that start from now on.
put_screen() {
  wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f
  wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v tests /d "$2" /f
  wineserver --wait
} >/dev/null 2>&1

finish() {
  [ -z "$program" ] || kill "$program" 2>/dev/null || true
  wineserver -k || true
  put_screen 96 1600x1200
  rm -rf "$work"
}
trap finish EXIT

fail() {
  echo "tdprint.exe at $resolution dpi: $*" >&2
  [ ! -s "$work/errors" ] || sed 's/^/  /' "$work/errors" >&2
  import -window root "$pictures/$resolution-failed.png"
  exit 1
}

until_it_works() {
  for _ in $(seq 300); do
    if "$@" >/dev/null 2>&1; then return; fi
    sleep 0.1
  done
  fail "this has never worked: $*"
}

# open ARGUMENTS…: starts tdprint.exe; has_ended STATUS: it ends, having told that.
open() {
  wine "$programs/tdprint.exe" "$@" >"$work/said" 2>"$work/errors" &
  program=$!
}
has_ended() {
  local status=0
  for _ in $(seq 300); do
    if ! kill -0 "$program" 2>/dev/null; then break; fi
    sleep 0.1
  done
  if kill -0 "$program" 2>/dev/null; then fail "its window stays open"; fi
  wait "$program" || status=$?
  program=
  [ "$status" = "$1" ] || fail "status $status, expected $1"
}

windows() { xdotool search --onlyvisible --name "^$1\$"; }
window() { windows "$1" | tail -1; } # the uppermost one
has_window() { [ -n "$(window "$1")" ]; }
has_no_window() { ! has_window "$1"; }
has_two_windows() { [ "$(windows "$1" | wc -l)" -eq 2 ]; }

press() { # window, keys
  until_it_works has_window "$1"
  xdotool windowfocus --sync "$(window "$1")"
  xdotool key --delay 40 "${@:2}"
}
# The keys that close it.
leave() { # window, keys
  press "$@"
  until_it_works has_no_window "$1"
}
# The key again until its window is there: a run takes no keys for the buttons that it has disabled.
press_for() { # window, key, new window
  for _ in $(seq 20); do
    press "$1" "$2"
    for _ in $(seq 30); do
      if has_window "$3"; then return; fi
      sleep 0.1
    done
  done
  fail "$2 doesn't open $3"
}
# The text in the place of the one that the field with this access key has.
write() { # window, access key, text
  press "$1" "$2" ctrl+a
  xdotool type --delay 40 "$3"
}
# The window as it looks once nothing moves in it any more; `shown` is then another text for another
# look.
picture() { # window, name
  local before=none
  until_it_works has_window "$1"
  xdotool mousemove 2559 1599
  while
    import -window "$(window "$1")" "$pictures/$resolution-$2.png"
    shown=$(identify -format '%#' "$pictures/$resolution-$2.png")
    [ "$shown" != "$before" ]
  do
    before=$shown
    sleep 0.5
  done
}
# The button of the mouse at a place of the window, in pixels at 96 dots per inch.
click() { # window, button, x, y
  xdotool mousemove --window "$(window "$1")" \
    $(($3 * resolution / 96)) $(($4 * resolution / 96)) click "$2"
}

stored() { sqlite3 "$shop" "$1"; }
is_stored() { [ "$(stored "$1")" = "$2" ]; } # query, value
has_printed() { # pages
  local job
  job=$(newest_job '*tdprint*.pdf')
  [ -n "$job" ] && pdfinfo "$job" | grep -q "^Pages: *$1\$"
}

readonly format=销售订单三联
use_preview() {
  local setup="select FPaperSize from TDBill_PaperSize where FTDBillName='$format'"
  open preview --db "$database" --type 21 --format "$format" \
    --data 'select * from v_sales_order where FInterID=21003'
  press_for 打印预览 ctrl+g 转到某一页
  picture 转到某一页 page-number
  leave 转到某一页 Escape
  local first
  picture 打印预览 preview
  first=$shown
  xdotool keydown ctrl
  click 打印预览 5 500 300 # the wheel, towards the user
  xdotool keyup ctrl
  picture 打印预览 preview-half
  [ "$shown" != "$first" ] || fail "the wheel doesn't zoom"
  press 打印预览 ctrl+0
  picture 打印预览 preview-again
  [ "$shown" = "$first" ] || fail "zoomed twice, the page looks otherwise"
  click 打印预览 1 100 41 # 下页
  picture 打印预览 preview-next
  [ "$shown" != "$first" ] || fail "a click on the button doesn't turn the page"
  press 打印预览 Prior
  picture 打印预览 preview-again
  [ "$shown" = "$first" ] || fail "the first page doesn't come back"

  press_for 打印预览 ctrl+shift+p 页面设置
  picture 页面设置 page-setup
  leave 页面设置 Escape
  is_stored "$setup" '' || fail "a cancelled page setup is stored"
  press_for 打印预览 ctrl+shift+p 页面设置
  # A5 with its long side across: a size that has a number of its own.
  write 页面设置 alt+w 210
  write 页面设置 alt+h 148
  press 页面设置 alt+o
  until_it_works has_two_windows 页面设置
  picture 页面设置 unkept-sheet
  press 页面设置 alt+u
  until_it_works is_stored "$setup" 78

  press_for 打印预览 ctrl+t 套打设置
  press 套打设置 Tab
  press 套打设置 ctrl+a
  xdotool type --delay 40 113.5
  leave 套打设置 Return
  until_it_works is_stored "select FAdjuctLeft from TDBill where FTDBillName='$format'" 113.5

  touch "$work/before"
  press_for 打印预览 ctrl+p 'Print|打印'
  picture 'Print|打印' printer-dialog
  leave 'Print|打印' Return
  until_it_works has_printed 3
  press 打印预览 alt+F4
  has_ended 0
}

# What the print button makes is chosen by an option, and no dialog asks.
use_preview_for_pictures() {
  open preview --db "$database" --type 21 --format "$format" \
    --data 'select * from v_sales_order where FInterID=21002' --png "Z:${work//\//\\}\\pages"
  press_for 打印预览 ctrl+g 转到某一页
  leave 转到某一页 Escape
  press 打印预览 ctrl+p
  until_it_works test -s "$work/pages/page-001.png"
  press 打印预览 Escape
  has_ended 0
}

use_message() {
  open preview --db "$database" --type 21 --format 没有的格式 \
    --data 'select * from v_sales_order where FInterID=21002'
  picture tdprint message
  press tdprint Return
  has_ended 1
}

use_settings() {
  local saved="select FAdjuctTop||' '||FRowHeight||' '||FOrientation||' '||FHeaderPerPage
    from TDBill where FTDBillName='$format'"
  local before
  before=$(stored "$saved")
  open settings --db "$database" --type 21
  picture 套打设置 settings
  press 套打设置 Tab Tab
  press 套打设置 ctrl+a
  xdotool type --delay 40 57
  press 套打设置 Escape
  has_ended 0
  is_stored "$saved" "$before" || fail "what was cancelled is saved"

  open settings --db "$database" --type 21
  press 套打设置 Tab Tab ctrl+a
  xdotool type --delay 40 57
  press 套打设置 Tab Tab ctrl+a
  xdotool type --delay 40 355.5
  # Over the rows and the printer to the direction: landscape; to the first box.
  press 套打设置 Tab Tab Tab Tab Down Tab space alt+o
  has_ended 0
  is_stored "$saved" '57.0 355.5 1 0' || fail "saved is: $(stored "$saved")"
}

use_area_printers() {
  open area-printers --db "$database"
  # 销售订货单, its first format, the first area and the first printer behind the line.
  press 分库区打印设置 Down Tab Down Tab Down Tab Down Down Down
  picture 分库区打印设置 area-printers
  press 分库区打印设置 alt+s
  picture tdprint saved
  leave tdprint Return
  press 分库区打印设置 alt+F4
  has_ended 0
  local kept
  kept=$(stored 'select FTranType, FStockArea, FPrintDevice like "QbTd-%" from TDBill_AreaPrinterDevice')
  [ "$kept" = '21|A|1' ] || fail "kept is: $kept"
}

rm -rf "$pictures"
mkdir -p "$pictures"
readonly database=sqlite:Z:${work//\//\\}\\shop.db
for resolution in "${resolutions[@]}"; do
  put_screen "$resolution" 2560x1600
  rm -f "$shop"
  rm -rf "$work/pages"
  wine "$programs/tdprint.exe" sample-sql --engine sqlite | sqlite3 "$shop"
  sqlite3 "$shop" "update TDBill set FPrintDevice='$queue'"
  use_preview
  use_preview_for_pictures
  use_message
  use_settings
  use_area_printers
  echo "tdprint.exe at $resolution dpi: its windows open, are used and do what they shall"
done
