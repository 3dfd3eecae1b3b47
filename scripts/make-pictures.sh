#!/bin/bash
# Makes the pictures of docs/images from the program itself: on a display and with a printing system of
# its own, so that they are the same on every machine. As root, which the printing system asks for.
#
#   make-pictures.sh [BUILD_FOLDER]    with the tests, two of which photograph the designer
#
# docs/images/house.svg is drawn by hand.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "${1:-build/release}")
tdprint=$build/tools/tdprint/tdprint
work=$(mktemp -d)
readonly build tdprint work images=$PWD/docs/images
PATH=$PATH:/usr/sbin:/sbin
processes=()
finish() {
  for process in "${processes[@]}"; do kill "$process" 2>/dev/null || true; done
  wait
  rm -rf "$work"
}
trap finish EXIT

until_it_works() {
  for _ in $(seq 300); do
    if "$@" >/dev/null 2>&1; then return; fi
    sleep 0.1
  done
  echo "This has never worked: $*" >&2
  exit 1
}

# A printing system with one printer, 前台. The user's own settings have no say.
export HOME=$work/home XDG_CONFIG_HOME=$work/home XDG_STATE_HOME=$work/home CUPS_SERVER=$work/cups.sock
mkdir -p "$HOME" "$work"/cups/{cache,spool,state,logs}
chmod 755 "$work"
cat >"$work/cups/cupsd.conf" <<CONFIGURATION
Listen $CUPS_SERVER
DefaultAuthType None
WebInterface No
<Location />
  Order allow,deny
  Allow all
</Location>
CONFIGURATION
cat >"$work/cups/cups-files.conf" <<CONFIGURATION
ServerRoot $work/cups
CacheDir $work/cups/cache
RequestRoot $work/cups/spool
StateDir $work/cups/state
AccessLog $work/cups/logs/access
ErrorLog $work/cups/logs/error
PageLog $work/cups/logs/page
FileDevice Yes
CONFIGURATION
cupsd -f -c "$work/cups/cupsd.conf" -s "$work/cups/cups-files.conf" &
processes+=($!)
until_it_works lpadmin -p 前台 -E -v file:///dev/null -P /usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd
lpadmin -d 前台

mkfifo "$work/number"
Xvfb -displayfd 3 -screen 0 1300x1060x24 -dpi 96 -nolisten tcp -noreset \
  3>"$work/number" 2>"$work/xvfb.log" &
processes+=($!)
read -r number <"$work/number"
export DISPLAY=:$number QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY

windows() { xdotool search --onlyvisible --name "^$1\$"; }
window() { windows "$1" | tail -1; }  # the uppermost one
has_window() { [ -n "$(window "$1")" ]; }
has_two_windows() { [ "$(windows "$1" | wc -l)" -eq 2 ]; }
press() { # window, keys
  until_it_works has_window "$1"
  xdotool windowfocus --sync "$(window "$1")"
  xdotool key --delay 100 "${@:2}"
}
# The window as it looks once nothing moves in it any more.
picture() { # window, file
  local before=none now
  until_it_works has_window "$1"
  xdotool mousemove 1299 1059
  while
    import -window "$(window "$1")" "$work/now.png"
    now=$(identify -format '%#' "$work/now.png")
    [ "$now" != "$before" ]
  do
    before=$now
    sleep 0.5
  done
  convert "$work/now.png" -colors 64 -strip -define png:compression-level=9 "$images/$2"
}

"$tdprint" demo --out "$work/out" >/dev/null
order() { # number, command, its places
  local order=("$tdprint" "$2" --db "sqlite:$work/out/sample.db" --type 21 --format 销售订单三联
    --data "select * from v_sales_order where FInterID=$1" "${@:3}")
  "${order[@]}"
}

order 21002 print --png "$work/pages"
convert "$work"/pages/*.png -resize 1200x -colorspace gray -colors 64 -strip \
  -define png:compression-level=9 "$images/sales-order.png"

# The recipes, each with the first of its page's prints; of the cheque the values alone, too.
cp -r examples "$work/examples"
"$tdprint" sample-sql --engine sqlite --only-schema | sqlite3 "$work/recipes.db"
recipe() { # name, bill type, query, width of the picture, pages
  local name=$1 type=$2 data=$3 width=$4 pages=("${@:5}")
  sqlite3 -bail "$work/recipes.db" <"$work/examples/recipes/$name.sql"
  "$tdprint" import-format --db "sqlite:$work/recipes.db" "$work/examples/recipes/$name.json" >/dev/null
  local print=("$tdprint" print --db "sqlite:$work/recipes.db" --type "$type" --data "$data")
  "${print[@]}" --pdf "$work/$name.pdf"
  "${print[@]}" --only-variant --pdf "$work/$name-values.pdf"
  local page parts=()
  for page in "${pages[@]}"; do # such as 1 or values-1
    local pdf=$work/$name.pdf
    [ "$page" = "${page#values-}" ] || pdf=$work/$name-values.pdf
    pdftoppm -r 150 -gray -png -singlefile -f "${page#values-}" "$pdf" "$work/$name-$page"
    parts+=("$work/$name-$page.png")
  done
  montage "${parts[@]}" -tile "${tile:-1x}" -background gray60 -geometry +6+6 -resize "${width}x" miff:- |
    convert - +dither -colors 16 -depth 8 -strip -define png:compression-level=9 "PNG8:$images/recipe-$name.png"
}
recipe waybill 51 "select * from v_waybill order by FWaybillID" 900 1
recipe cheque 52 "select * from v_cheque order by FChequeID" 900 1 values-1
recipe invoice 53 "select * from v_invoice order by FInterID, FEntryID" 900 1
recipe delivery 54 "select * from v_delivery where FCopy=0 order by FInterID, FEntryID" 900 2
recipe labels 55 "select * from v_label order by FFirstPlace" 600 1
tile=3x recipe tag 56 "select * from v_staff_tag order by FStaffID" 250 1 2 3

order 21003 preview &
processes+=($!)
until_it_works has_window 打印预览
picture 打印预览 preview.png
press 打印预览 ctrl+shift+p
picture 页面设置 page-setup.png
# A5 with its long side across: a size that has a number of its own.
press 页面设置 alt+w ctrl+a 2 1 0 Tab ctrl+a 1 4 8 Tab alt+o
until_it_works has_two_windows 页面设置
picture 页面设置 user-defined-sheet.png
press 页面设置 Escape
press 页面设置 Escape
press 打印预览 Escape

"$tdprint" settings --db "sqlite:$work/out/sample.db" --type 21 &
processes+=($!)
picture 套打设置 settings.png
press 套打设置 Escape

# The designer at work on a scan, in both languages. Its tests take more pictures than the pages show.
mkdir "$work/designer"
for test in designer_window_test designer_english_test; do
  QBTD_PICTURES=$work/designer "$build/tests/designer_window/$test" \
    --gtest_filter='FromScanToPrint.*:WindowWords.*' >"$work/$test.log" 2>&1 || { cat "$work/$test.log" >&2; exit 1; }
done
for file in "$images"/{designer,dialog}-*.png; do
  convert "$work/designer/${file##*/}" +dither -colors 128 -strip -define png:compression-level=9 "$file"
done
